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

// A folder of resources: files, and string tables in one folder "LANGUAGE.lproj" for each language. Main
// thread.
//
//     const auto bundle = Bundle::open(folder);
//     bundle->localizedString("Packet time zone", "", "");  // in the user's language, else the key
class Bundle {
public:
  // The application's own. Its folder is that of the executable, and its resources are in the first that
  // exists of: NAME/ below share/ next to the executable's folder, NAME being the executable's; Resources/
  // below the executable's folder; that folder itself.
  static Bundle& mainBundle();

  // Other resources for the main bundle, for a host that is installed in another way.
  static void setMainResourceFolder(const std::filesystem::path& folder);

  // A folder as a bundle, with its resources in Resources/ below it when that exists, or else in the folder
  // itself. Nothing when there is no such folder.
  static std::shared_ptr<Bundle> open(const std::filesystem::path& folder);

  // The bundle of the program or library that a piece of code or data was linked into: the folder that it
  // was loaded from, with resources as above. Nothing when the address belongs to none.
  static std::shared_ptr<Bundle> containing(const void* address);

  // The languages that a person reads, the best first, as "de", "pt-BR" or "zh-Hans". A language also
  // stands for those it is a kind of ("zh-Hans-CN", "zh-Hans", "zh"), a bare one for its kinds, and English
  // for all that are missing. At first they are those of the environment (LANGUAGE, LC_ALL, LC_MESSAGES,
  // LANG).
  static void setPreferredLanguages(std::vector<std::string> languages);
  static const std::vector<std::string>& preferredLanguages();

  const std::filesystem::path& folder() const { return folder_; }
  const std::filesystem::path& resourceFolder() const { return resources_; }

  // The file of a resource, whose whole name is `name` when the type is empty, and "name.type" otherwise;
  // outside the language folders first, then in the best of them that has it.
  std::optional<std::filesystem::path> pathForResource(std::string_view name, std::string_view type = {}) const;

  // The text under a key in a string table, "Localizable" when the name is empty, in the best language that
  // has the table. Without one there it is the value, or the key when the value is empty. Tables are read
  // once.
  std::string localizedString(std::string_view key, std::string_view value = {}, std::string_view table = {}) const;

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
