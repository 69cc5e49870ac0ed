// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceDescriptor.hpp"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

// The registry of descriptors, in the order in which they were added. Main thread.
//
//     PreferenceCatalogue catalogue = fixedCatalogue();
//     if (const auto problem = catalogue.add(descriptor)) report(*problem);
//     if (const auto* known = catalogue.find(key)) use(known->title);
class PreferenceCatalogue {
public:
  // A longer title or purpose is refused.
  static constexpr std::size_t kLongestText = 4096;

  // Adds a descriptor, or returns in one line why not: the key is empty or described already, the
  // default does not fit, or a text is too long.
  [[nodiscard]] std::optional<std::string> add(PreferenceDescriptor descriptor);

  // Null for a key that is not described. Valid until the descriptor is removed.
  const PreferenceDescriptor* find(std::string_view key) const;

  void remove(std::string_view key);

  std::vector<const PreferenceDescriptor*> all() const;
  std::size_t size() const { return byKey_.size(); }

  // The described keys that a mistyped key may stand for, the nearest first, at most three.
  std::vector<std::string> nearMisses(std::string_view key) const;

private:
  struct Entry {
    std::size_t number = 0;
    std::unique_ptr<const PreferenceDescriptor> descriptor;
  };
  std::map<std::string, Entry, std::less<>> byKey_;
  std::map<std::size_t, const PreferenceDescriptor*> byNumber_;
  std::size_t next_ = 0;
};

// The catalogue of the keys with fixed names.
PreferenceCatalogue fixedCatalogue();

}  // namespace QEVSettings
