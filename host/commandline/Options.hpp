#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/PropertyList.hpp"
#include "foundation/Result.hpp"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace zorvantine {

enum class Tab { general, capture, proxy, analyze, appearance };
enum class Appearance { light, dark };
enum class OutputFormat { text, json };

// "general", "capture", "proxy", "analyze" or "appearance".
std::string_view nameOf(Tab tab);

// What the window is made of, whether it is opened, drawn or described.
struct WindowOptions {
  bool hasProxyTab = true;
  // Made-up analyzers in place of the real ones; nothing for the real ones.
  std::optional<std::size_t> syntheticAnalyzers;
  // Empty for the desktop's language.
  std::string language;

  friend bool operator==(const WindowOptions&, const WindowOptions&) = default;
};

struct SettingsCommand {
  Tab tab = Tab::general;
  WindowOptions window;
};
struct RunCommand {
  WindowOptions window;
};
struct SnapshotCommand {
  std::filesystem::path folder;
  // Nothing for every tab.
  std::optional<Tab> tab;
  // Nothing for the appearance that the person chose.
  std::optional<Appearance> appearance;
  int scale = 1;
  WindowOptions window;
};
struct DescribeCommand {
  Tab tab = Tab::general;
  OutputFormat format = OutputFormat::text;
  WindowOptions window;
};

struct ListPreferencesCommand {
  OutputFormat format = OutputFormat::text;
};
struct GetPreferenceCommand {
  std::string key;
};
struct SetPreferenceCommand {
  std::string key;
  QEVSettings::PreferenceValue value = false;
};
struct DeletePreferenceCommand {
  std::string key;
};
struct ImportPreferencesCommand {
  std::filesystem::path file;
};
struct ExportPreferencesCommand {
  std::filesystem::path file;
  foundation::PropertyListFormat format = foundation::PropertyListFormat::xml;
};
struct MigratePreferencesCommand {};
struct WatchPreferencesCommand {};
struct VerifyPreferencesCommand {};

struct ListAnalyzersCommand {
  OutputFormat format = OutputFormat::text;
};
struct ValidatePortsCommand {
  // "-" for what comes on standard input.
  std::string text;
  OutputFormat format = OutputFormat::text;
};

struct HelpCommand {};
struct VersionCommand {};

using Command =
    std::variant<SettingsCommand, RunCommand, SnapshotCommand, DescribeCommand, ListPreferencesCommand,
                 GetPreferenceCommand, SetPreferenceCommand, DeletePreferenceCommand, ImportPreferencesCommand,
                 ExportPreferencesCommand, MigratePreferencesCommand, WatchPreferencesCommand, VerifyPreferencesCommand,
                 ListAnalyzersCommand, ValidatePortsCommand, HelpCommand, VersionCommand>;

// What a command does with the preferences store.
enum class StoreUse {
  none,      // nothing
  inspects,  // looks at its file without opening the store
  reads,     // opens it for reading: nothing on disk is created or changed
  writes,    // opens it for writing, which makes a store that is missing
  shows,     // as `writes`, in a window, which is of use without a file too
};

// Whether the command opens the store.
constexpr bool opensStore(StoreUse use) { return use != StoreUse::none && use != StoreUse::inspects; }

// A command line, understood.
struct Options {
  // Nothing for the user's own store.
  std::optional<std::filesystem::path> store{};
  StoreUse storeUse = StoreUse::none;
  Command command;
};

// Reads the words after the program's name. An option's value may follow it or be joined to it by "=";
// options may stand anywhere among a command's words, and "--" ends them. The error says what is wrong
// with the words, for a person who typed them.
foundation::Result<Options> parseOptions(std::span<const std::string_view> words);

}  // namespace zorvantine
