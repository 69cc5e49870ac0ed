// SPDX-License-Identifier: MIT
#include "general/QEVTimeZones.hpp"

#include "QEVLog/QEVLog.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/Files.hpp"
#include "foundation/StringsFile.hpp"
#include "foundation/TimeZones.hpp"
#include "foundation/Unicode.hpp"

#include <filesystem>
#include <optional>
#include <source_location>
#include <string_view>
#include <utility>

namespace QEVSettings {

namespace {

constexpr std::string_view kFileName = "LocalizableTimeZones.strings";

void log(const std::string& message, std::source_location place = std::source_location::current()) {
  QEVLog::logMessage(message, "localizedTimeZoneNames", place);
}

std::optional<std::string> readUtf16(const std::filesystem::path& path) {
  const auto bytes = foundation::readFile(path);
  return bytes ? foundation::utf8FromUtf16(*bytes) : std::nullopt;
}

}  // namespace

std::vector<std::string> QEVTimeZones::localizedTimeZoneNames() {
  const auto path = foundation::Bundle::mainBundle().pathForResource(kFileName);
  const auto text = readUtf16(path.value_or(std::filesystem::path()));
  if (!text) {
    log("couldnt get LocalizableTimeZones.strings");
    return {};
  }

  // A file that cannot be parsed has no entries, and the identifiers stand for themselves.
  auto parsed = foundation::parseStringsText(*text);
  const bool isTable = static_cast<bool>(parsed);
  const auto names = isTable ? *std::move(parsed) : foundation::StringsTable();

  std::vector<std::string> list = foundation::knownTimeZoneNames();
  if (!isTable || names.size() != list.size()) {
    log("LocalizableTimeZone Strings need update (" + std::to_string(names.size()) +
        " != " + std::to_string(list.size()) + " )");
  }
  for (std::string& identifier : list) {
    const auto name = names.find(identifier);
    if (name != names.end()) identifier = name->second;
  }
  return list;
}

}  // namespace QEVSettings
