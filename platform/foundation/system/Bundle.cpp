// SPDX-License-Identifier: MIT
#include "foundation/Bundle.hpp"

#include <dlfcn.h>
#include <sys/auxv.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

namespace foundation {

namespace {

constexpr std::string_view kLanguageFolderEnding = ".lproj";

bool isFolder(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

bool isFile(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

// "de_AT.UTF-8@euro" is "de-AT". The locales "C" and "POSIX" name no language: the result is empty.
std::string languageOfLocale(std::string_view locale) {
  std::string language(locale.substr(0, locale.find_first_of(".@")));
  std::replace(language.begin(), language.end(), '_', '-');
  return language == "C" || language == "POSIX" ? std::string() : language;
}

std::vector<std::string> languagesOfEnvironment() {
  const auto variable = [](const char* name) {
    const char* text = std::getenv(name);
    return std::string_view(text != nullptr ? text : "");
  };
  std::vector<std::string> languages;
  std::string_view list = variable("LANGUAGE");
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(':'), list.size());
    languages.push_back(languageOfLocale(list.substr(0, end)));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (variable(name).empty()) continue;
    languages.push_back(languageOfLocale(variable(name)));
    break;
  }
  std::erase(languages, std::string());
  return languages;
}

std::vector<std::string>& chosenLanguages() {
  static std::vector<std::string> languages = languagesOfEnvironment();
  return languages;
}

// Counts the changes of the preferred languages.
std::uint64_t languageGeneration = 0;

// A language and the more general ones, the nearest first: "zh-Hans-CN", "zh-Hans", "zh".
std::vector<std::string> generalizations(std::string language) {
  // The country implies the script of Chinese.
  const auto endsWithAny = [&](std::initializer_list<std::string_view> countries) {
    return std::any_of(countries.begin(), countries.end(),
                       [&](auto country) { return language.ends_with(country); });
  };
  std::vector<std::string> found{language};
  if (language == "zh-CN" || language == "zh-SG") found.emplace_back("zh-Hans");
  if (language.size() == 5 && language.starts_with("zh-") && endsWithAny({"TW", "HK", "MO"})) {
    found.emplace_back("zh-Hant");
  }
  for (std::size_t hyphen = language.rfind('-'); hyphen != std::string::npos;
       hyphen = language.rfind('-')) {
    language.resize(hyphen);
    found.push_back(language);
  }
  return found;
}

std::filesystem::path executable() {
  std::error_code error;
  auto path = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) return path;
  // Without /proc, the kernel still hands over the name of the file that the process was started
  // from.
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands the address over as a number
  const auto* name = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
  return name != nullptr ? std::filesystem::canonical(name, error) : std::filesystem::path();
}

// The loader knows the program by the name it was started with, which may be no path.
std::optional<std::filesystem::path> libraryOf(const void* address) {
  Dl_info info{};
  if (dladdr(address, &info) == 0 || info.dli_fname == nullptr) return std::nullopt;
  const std::filesystem::path path = info.dli_fname;
  return path.filename().string().find(".so") != std::string::npos ? path : executable();
}

std::filesystem::path mainResourceFolder(const std::filesystem::path& program) {
  std::filesystem::path folder = program.parent_path();
  for (const auto& candidate :
       {folder.parent_path() / "share" / program.filename(), folder / "Resources"}) {
    if (isFolder(candidate)) return candidate;
  }
  return folder;
}

}  // namespace

Bundle::Bundle(std::filesystem::path folder, std::filesystem::path resources)
    : folder_(std::move(folder)), resources_(std::move(resources)) {
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(resources_, error)) {
    const std::string name = entry.path().filename().string();
    if (name.ends_with(kLanguageFolderEnding)) {
      languages_.push_back(name.substr(0, name.size() - kLanguageFolderEnding.size()));
    }
  }
  std::sort(languages_.begin(), languages_.end());
}

Bundle& Bundle::mainBundle() {
  static Bundle bundle(executable().parent_path(), mainResourceFolder(executable()));
  return bundle;
}

void Bundle::setMainResourceFolder(const std::filesystem::path& folder) {
  mainBundle() = Bundle(mainBundle().folder_, folder);
}

std::shared_ptr<Bundle> Bundle::open(const std::filesystem::path& folder) {
  if (!isFolder(folder)) return nullptr;
  const auto resources = folder / "Resources";
  return std::shared_ptr<Bundle>(new Bundle(folder, isFolder(resources) ? resources : folder));
}

void Bundle::setPreferredLanguages(std::vector<std::string> languages) {
  chosenLanguages() = std::move(languages);
  ++languageGeneration;
}

std::shared_ptr<Bundle> Bundle::containing(const void* address) {
  const auto library = libraryOf(address);
  return library ? open(library->parent_path()) : nullptr;
}

const std::vector<std::string>& Bundle::preferredLanguages() { return chosenLanguages(); }

std::vector<std::filesystem::path> Bundle::languageFolders() const {
  std::vector<std::filesystem::path> folders;
  const auto add = [&](const std::string& language) {
    folders.push_back(resources_ / (language + std::string(kLanguageFolderEnding)));
  };
  for (const std::string& preferred : chosenLanguages()) {
    for (const std::string& language : generalizations(preferred)) {
      if (std::binary_search(languages_.begin(), languages_.end(), language)) add(language);
    }
    for (const std::string& language : languages_) {
      if (language.starts_with(preferred + "-")) add(language);
    }
  }
  add("en");
  return folders;
}

std::optional<std::filesystem::path> Bundle::pathForResource(std::string_view name,
                                                             std::string_view type) const {
  if (name.empty()) return std::nullopt;
  std::string file(name);
  if (!type.empty()) file.append(".").append(type);
  if (auto path = resources_ / file; isFile(path)) return path;
  for (const auto& folder : languageFolders()) {
    if (auto path = folder / file; isFile(path)) return path;
  }
  return std::nullopt;
}

std::string Bundle::localizedString(std::string_view key, std::string_view value,
                                    std::string_view table) const {
  const StringsTable& strings = this->table(table.empty() ? "Localizable" : table);
  if (const auto found = strings.find(key); found != strings.end()) return found->second;
  return std::string(value.empty() ? key : value);
}

// A table that is missing or cannot be read counts as empty. The cache's key holds the generation
// of the preferred languages, so that a change of these does not find tables of the languages
// before.
const StringsTable& Bundle::table(const std::filesystem::path& file) const {
  const auto place = std::filesystem::path(std::to_string(languageGeneration)) / file;
  const auto known = tables_.find(place);
  if (known != tables_.end()) return known->second;
  StringsTable table;
  if (const auto found = pathForResource(file.string(), "strings")) {
    if (auto read = readStringsFile(*found)) table = *std::move(read);
  }
  return tables_.emplace(place, std::move(table)).first->second;
}

}  // namespace foundation
