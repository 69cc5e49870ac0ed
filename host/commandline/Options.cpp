#include "commandline/Options.hpp"

#include "commandline/OptionReader.hpp"
#include "commandline/ValueReader.hpp"
#include "foundation/Unicode.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::PropertyListFormat;
using foundation::Result;
using QEVSettings::PreferenceValue;

namespace {

using Operands = std::vector<std::string_view>;

constexpr std::size_t kMostSyntheticAnalyzers = 1'000'000;

constexpr std::array<std::pair<std::string_view, Tab>, 5> kTabs{{{"general", Tab::general},
                                                                 {"capture", Tab::capture},
                                                                 {"proxy", Tab::proxy},
                                                                 {"analyze", Tab::analyze},
                                                                 {"appearance", Tab::appearance}}};

// The words of one command, and what any command line may say besides.
struct CommandLine {
  std::string_view name;
  Words words;
  std::optional<std::filesystem::path> store{};
  bool wantsHelp = false;

  // Takes the options out of the words; exactly the operands named are left.
  Result<Operands> read(std::vector<Option> options, const Operands& operandNames = {}) {
    options.push_back(flag("--help", wantsHelp, true));
    options.push_back(flag("-h", wantsHelp, true));
    options.push_back({.name = "--store", .take = [this](std::string_view value) {
                         if (value.empty()) return Outcome(Error{"--store needs the name of a file"});
                         store = value;
                         return done();
                       }});
    auto operands = readOptions(words, options);
    if (!operands) return Error{std::string(name) + ": " + operands.error().message};
    if (operands->size() < operandNames.size()) {
      return Error{std::string(name) + " needs " + std::string(operandNames[operands->size()])};
    }
    if (operands->size() > operandNames.size()) {
      return Error{std::string(name) + " has no use for “" + std::string((*operands)[operandNames.size()]) + "”"};
    }
    return operands;
  }
};

template <class Target>
std::vector<std::pair<std::string_view, Target>> tabChoices() {
  return {kTabs.begin(), kTabs.end()};
}

Option formatOption(OutputFormat& format) {
  return choice<OutputFormat>("--format", format, {{"text", OutputFormat::text}, {"json", OutputFormat::json}});
}

Option analyzersOption(WindowOptions& window) {
  return {.name = "--analyzers", .take = [&window](std::string_view value) {
            std::size_t count = 0;
            const char* const end = value.data() + value.size();
            const auto [stop, error] = std::from_chars(value.data(), end, count);
            if (error != std::errc() || stop != end || count > kMostSyntheticAnalyzers) {
              return Outcome(Error{"--analyzers is a number from 0 to " + std::to_string(kMostSyntheticAnalyzers)});
            }
            window.syntheticAnalyzers = count;
            return done();
          }};
}

// A language as its folder of translations is named: "de", "zh-Hans", "pt_BR".
Option languageOption(WindowOptions& window) {
  return {.name = "--language", .take = [&window](std::string_view value) {
            const bool isCode = !value.empty() && std::ranges::all_of(value, [](char c) {
              return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
            });
            if (!isCode) return Outcome(Error{"--language is a code such as en, de or zh-Hans"});
            window.language = value;
            return done();
          }};
}

void addWindowOptions(std::vector<Option>& options, WindowOptions& window) {
  options.push_back(flag("--no-proxy", window.hasProxyTab, false));
  options.push_back(analyzersOption(window));
  options.push_back(languageOption(window));
}

Outcome checkTab(Tab tab, const WindowOptions& window) {
  if (tab == Tab::proxy && !window.hasProxyTab) return Error{"--no-proxy leaves no proxy tab to show"};
  return done();
}

Result<Command> parseSettings(CommandLine& line) {
  SettingsCommand command;
  bool wantsVersion = false;
  std::vector<Option> options{choice("--tab", command.tab, tabChoices<Tab>()), flag("--version", wantsVersion, true)};
  addWindowOptions(options, command.window);
  const auto operands = line.read(std::move(options));
  if (!operands) return operands.error();
  if (wantsVersion) return Command(VersionCommand{});
  if (auto outcome = checkTab(command.tab, command.window); !outcome) return outcome.error();
  return Command(command);
}

Result<Command> parseRun(CommandLine& line) {
  RunCommand command;
  std::vector<Option> options;
  addWindowOptions(options, command.window);
  const auto operands = line.read(std::move(options));
  if (!operands) return operands.error();
  return Command(command);
}

Result<Command> parseSnapshot(CommandLine& line) {
  SnapshotCommand command;
  auto tabs = tabChoices<std::optional<Tab>>();
  tabs.emplace_back("all", std::nullopt);
  std::vector<Option> options{
      {.name = "--out",
       .take =
           [&command](std::string_view value) {
             command.folder = value;
             return done();
           }},
      choice("--tab", command.tab, std::move(tabs)),
      choice<std::optional<Appearance>>("--appearance", command.appearance,
                                        {{"light", Appearance::light}, {"dark", Appearance::dark}}),
      choice<int>("--scale", command.scale, {{"1", 1}, {"2", 2}}),
  };
  addWindowOptions(options, command.window);
  const auto operands = line.read(std::move(options));
  if (!operands) return operands.error();
  if (command.folder.empty()) return Error{"snapshot needs --out DIR, the folder that the pictures go to"};
  if (auto outcome = checkTab(command.tab.value_or(Tab::general), command.window); !outcome) return outcome.error();
  return Command(command);
}

Result<Command> parseDescribe(CommandLine& line) {
  DescribeCommand command;
  std::vector<Option> options{choice("--tab", command.tab, tabChoices<Tab>()), formatOption(command.format)};
  addWindowOptions(options, command.window);
  const auto operands = line.read(std::move(options));
  if (!operands) return operands.error();
  if (auto outcome = checkTab(command.tab, command.window); !outcome) return outcome.error();
  return Command(command);
}

Result<Command> parseList(CommandLine& line) {
  ListPreferencesCommand command;
  const auto operands = line.read({formatOption(command.format)});
  if (!operands) return operands.error();
  return Command(command);
}

Result<std::string> keyFrom(std::string_view operand) {
  if (operand.empty() || !foundation::isValidUtf8(operand))
    return Error{"a key is text of at least one character, in UTF-8"};
  return std::string(operand);
}

// For `prefs get` and `prefs delete`.
template <class KeyCommand>
Result<Command> parseWithKey(CommandLine& line) {
  const auto operands = line.read({}, {"a KEY"});
  if (!operands) return operands.error();
  const auto key = keyFrom(operands->front());
  if (!key) return key.error();
  return Command(KeyCommand{.key = *key});
}

Result<Command> parseSet(CommandLine& line) {
  using Type = PreferenceValue::Type;
  std::optional<PreferenceValue> value;
  const auto valueOption = [&value](std::string_view name, Type type) {
    return Option{.name = name, .take = [&value, type](std::string_view text) {
                    if (value) return Outcome(Error{"give one value"});
                    auto read = readValue(type, text);
                    if (!read) return Outcome(read.error());
                    value = *std::move(read);
                    return done();
                  }};
  };
  const auto operands = line.read(
      {valueOption("--string", Type::string), valueOption("--int", Type::integer), valueOption("--bool", Type::boolean),
       valueOption("--real", Type::real), valueOption("--data", Type::data)},
      {"a KEY"});
  if (!operands) return operands.error();
  const auto key = keyFrom(operands->front());
  if (!key) return key.error();
  if (!value) return Error{"prefs set needs a value: --string, --int, --bool, --real or --data, and VALUE"};
  return Command(SetPreferenceCommand{.key = *key, .value = *value});
}

Result<Command> parseImport(CommandLine& line) {
  const auto operands = line.read({}, {"a FILE"});
  if (!operands) return operands.error();
  if (operands->front().empty()) return Error{"prefs import needs a FILE with a name"};
  return Command(ImportPreferencesCommand{.file = operands->front()});
}

Result<Command> parseExport(CommandLine& line) {
  ExportPreferencesCommand command;
  const auto operands = line.read(
      {choice<PropertyListFormat>("--format", command.format,
                                  {{"xml", PropertyListFormat::xml}, {"binary", PropertyListFormat::binary}})},
      {"a FILE"});
  if (!operands) return operands.error();
  if (operands->front().empty()) return Error{"prefs export needs a FILE with a name"};
  command.file = operands->front();
  return Command(command);
}

template <class PlainCommand>
Result<Command> parsePlain(CommandLine& line) {
  const auto operands = line.read({});
  if (!operands) return operands.error();
  return Command(PlainCommand{});
}

Result<Command> parseAnalyzers(CommandLine& line) {
  ListAnalyzersCommand command;
  const auto operands = line.read({formatOption(command.format)});
  if (!operands) return operands.error();
  return Command(command);
}

Result<Command> parseValidate(CommandLine& line) {
  ValidatePortsCommand command;
  const auto operands = line.read({formatOption(command.format)}, {"a TEXT, or - for standard input"});
  if (!operands) return operands.error();
  command.text = operands->front();
  return Command(command);
}

struct Entry {
  std::string_view name;
  StoreUse storeUse;
  Result<Command> (*parse)(CommandLine&);
};

constexpr std::array<Entry, 16> kCommands{{
    {"settings", StoreUse::shows, parseSettings},
    {"run", StoreUse::shows, parseRun},
    {"snapshot", StoreUse::reads, parseSnapshot},
    {"describe", StoreUse::reads, parseDescribe},
    {"prefs list", StoreUse::reads, parseList},
    {"prefs get", StoreUse::reads, parseWithKey<GetPreferenceCommand>},
    {"prefs set", StoreUse::writes, parseSet},
    {"prefs delete", StoreUse::writes, parseWithKey<DeletePreferenceCommand>},
    {"prefs import", StoreUse::writes, parseImport},
    {"prefs export", StoreUse::reads, parseExport},
    {"prefs migrate", StoreUse::writes, parsePlain<MigratePreferencesCommand>},
    {"prefs watch", StoreUse::reads, parsePlain<WatchPreferencesCommand>},
    {"prefs verify", StoreUse::inspects, parsePlain<VerifyPreferencesCommand>},
    {"analyzers", StoreUse::reads, parseAnalyzers},
    {"ports validate", StoreUse::none, parseValidate},
    {"help", StoreUse::none, parsePlain<HelpCommand>},
}};

// Where the command stands: behind the store, which may come first.
std::size_t commandPosition(Words words) {
  std::size_t at = 0;
  while (at < words.size() && words[at].starts_with("--store")) at += words[at] == "--store" ? 2 : 1;
  return std::min(at, words.size());
}

Error noSuchCommand(std::string_view word) {
  Operands known;
  for (const Entry& entry : kCommands) {
    if (entry.name.starts_with(std::string(word) + " ")) known.push_back(entry.name.substr(word.size() + 1));
  }
  if (known.empty()) return Error{"there is no command “" + std::string(word) + "”"};
  return Error{std::string(word) + " needs " + alternatives(known) + " after it"};
}

}  // namespace

std::string_view nameOf(Tab tab) { return kTabs.at(static_cast<std::size_t>(tab)).first; }

Result<Options> parseOptions(std::span<const std::string_view> words) {
  std::vector<std::string_view> rest(words.begin(), words.end());
  const auto first = rest.begin() + static_cast<std::ptrdiff_t>(commandPosition(words));
  const Entry* entry = kCommands.data();
  if (first != rest.end() && !first->starts_with('-')) {
    const std::string_view word = *first;
    const std::string both = std::string(word) + ' ' + std::string(first + 1 != rest.end() ? first[1] : "");
    const auto found =
        std::ranges::find_if(kCommands, [&](const Entry& e) { return e.name == word || e.name == both; });
    const bool wantsHelp = first + 1 != rest.end() && (first[1] == "--help" || first[1] == "-h");
    if (found == kCommands.end() && wantsHelp) return Options{.command = HelpCommand{}};
    if (found == kCommands.end()) return noSuchCommand(word);
    entry = &*found;
    rest.erase(first, first + (entry->name == word ? 1 : 2));
  }
  CommandLine line{.name = entry->name, .words = rest};
  auto command = entry->parse(line);
  if (line.wantsHelp) return Options{.command = HelpCommand{}};
  if (!command) return command.error();
  const bool isVersion = std::holds_alternative<VersionCommand>(*command);
  return Options{.store = std::move(line.store),
                 .storeUse = isVersion ? StoreUse::none : entry->storeUse,
                 .command = *std::move(command)};
}

}  // namespace zorvantine
