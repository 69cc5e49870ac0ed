// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceCatalogue.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace QEVSettings {

namespace {

constexpr std::size_t kMostNearMisses = 3;
constexpr std::size_t kLongestComparedKey = 256;

std::optional<std::string> problemOf(const PreferenceDescriptor& descriptor) {
  if (descriptor.key.empty()) return "a setting without a key is not catalogued; give it one";
  const std::string named = "the setting “" + descriptor.key.substr(0, kLongestComparedKey) + "” ";
  if (descriptor.title.size() > PreferenceCatalogue::kLongestText ||
      descriptor.purpose.size() > PreferenceCatalogue::kLongestText) {
    return named + "is not catalogued: its texts may have " +
           std::to_string(PreferenceCatalogue::kLongestText) + " bytes";
  }
  const auto wanted =
      descriptor.defaultValue ? misfit(descriptor, *descriptor.defaultValue) : std::nullopt;
  if (wanted) return named + "is not catalogued: its default has to be " + *wanted;
  return std::nullopt;
}

// The number of characters to insert, remove, replace or swap to get from one text to the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool areSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (areSwapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    before = std::exchange(last, std::exchange(row, before));
  }
  return last[b.size()];
}

// What the user may type in place of a key: the part after the prefix that many keys share.
std::string_view withoutPrefix(std::string_view key) {
  for (const std::string_view prefix : {"com_velloquin_zorvantine_", "com_velloquin_qev_"}) {
    if (key.starts_with(prefix)) return key.substr(prefix.size());
  }
  return key;
}

}  // namespace

std::optional<std::string> PreferenceCatalogue::add(PreferenceDescriptor descriptor) {
  if (auto problem = problemOf(descriptor)) return problem;
  const auto [place, isNew] = byKey_.try_emplace(descriptor.key);
  if (!isNew) return "the setting “" + descriptor.key + "” is catalogued twice; the first stays";
  place->second = {
      .number = next_++,
      .descriptor = std::make_unique<const PreferenceDescriptor>(std::move(descriptor))};
  byNumber_.emplace(place->second.number, place->second.descriptor.get());
  return std::nullopt;
}

const PreferenceDescriptor* PreferenceCatalogue::find(std::string_view key) const {
  const auto found = byKey_.find(key);
  return found != byKey_.end() ? found->second.descriptor.get() : nullptr;
}

void PreferenceCatalogue::remove(std::string_view key) {
  const auto found = byKey_.find(key);
  if (found == byKey_.end()) return;
  byNumber_.erase(found->second.number);
  byKey_.erase(found);
}

std::vector<const PreferenceDescriptor*> PreferenceCatalogue::all() const {
  std::vector<const PreferenceDescriptor*> descriptors;
  descriptors.reserve(byNumber_.size());
  for (const auto& [number, descriptor] : byNumber_) descriptors.push_back(descriptor);
  return descriptors;
}

std::vector<std::string> PreferenceCatalogue::nearMisses(std::string_view key) const {
  if (key.size() > kLongestComparedKey) return {};
  const std::string_view typed = withoutPrefix(key);
  // A fifth of the characters may be wrong, and at least one.
  const std::size_t most = std::max<std::size_t>(1, typed.size() / 5);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const auto& [known, entry] : byKey_) {
    const std::string_view name = withoutPrefix(known);
    if (std::max(name.size(), typed.size()) - std::min(name.size(), typed.size()) > most) continue;
    const std::size_t wrong = distance(typed, name);
    if (wrong <= most) near.emplace_back(wrong, known);
  }
  std::ranges::sort(near);
  std::vector<std::string> keys;
  for (auto& [wrong, known] : near) {
    if (keys.size() < kMostNearMisses) keys.push_back(std::move(known));
  }
  return keys;
}

}  // namespace QEVSettings
