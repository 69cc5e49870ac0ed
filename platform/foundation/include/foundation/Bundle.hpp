// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/StringsFile.hpp"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

// A folder of resources: files, and string tables in one folder "LANGUAGE.lproj" for each language.
// Main thread.
//
//     const auto bundle = Bundle::open(folder);
//     bundle->localizedString("Packet time zone", "", "");  // in the user's language, else the key
class Bundle {
public:
  // The application's bundle: the folder of the executable. Its resources are in the first folder
  // that exists of ../share/NAME/, where NAME is the executable's name, Resources/, and the folder
  // itself.
  static Bundle& mainBundle();

  // Sets the resource folder of the main bundle, for a host that is installed in another way.
  static void setMainResourceFolder(const std::filesystem::path& folder);

  // A folder as a bundle. Its resources are in its folder Resources/ when that exists, otherwise in
  // the folder itself. Nothing when the folder does not exist.
  static std::shared_ptr<Bundle> open(const std::filesystem::path& folder);

  // The folder of the program or library that contains the code or data at the address, with
  // resources as for `open`. Nothing when no loaded file contains it.
  static std::shared_ptr<Bundle> containing(const void* address);

  // The languages that the user reads, such as "de", "pt-BR" or "zh-Hans", the preferred one first.
  // A language also matches more general ones ("zh-Hans-CN" matches "zh-Hans" and "zh"), a bare
  // language its variants. English is the last resort. Until they are set, they come from LANGUAGE,
  // LC_ALL, LC_MESSAGES and LANG.
  static void setPreferredLanguages(std::vector<std::string> languages);
  static const std::vector<std::string>& preferredLanguages();

  const std::filesystem::path& folder() const { return folder_; }
  const std::filesystem::path& resourceFolder() const { return resources_; }

  // The file of a resource, named `name` when the type is empty and "name.type" otherwise. Looked
  // for outside the language folders first, then in those of the preferred languages in order.
  std::optional<std::filesystem::path> pathForResource(std::string_view name,
                                                       std::string_view type = {}) const;

  // The text for a key in a string table of the most preferred language that has the table. An
  // empty table name means "Localizable". When the key is missing: the value, or the key if the
  // value is empty. Each table is read once.
  std::string localizedString(std::string_view key, std::string_view value = {},
                              std::string_view table = {}) const;

private:
  Bundle(std::filesystem::path folder, std::filesystem::path resources);
  std::vector<std::filesystem::path> languageFolders() const;
  const StringsTable& table(const std::filesystem::path& file) const;

  std::filesystem::path folder_;
  std::filesystem::path resources_;
  std::vector<std::string> languages_;  // of the language folders, in order
  mutable std::map<std::filesystem::path, StringsTable> tables_;
};

}  // namespace foundation
