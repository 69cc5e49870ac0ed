// SPDX-License-Identifier: MIT
#include "commands/SharedArguments.hpp"

#include "foundation/Translation.hpp"
#include "foundation/Unicode.hpp"

#include <array>
#include <charconv>
#include <cstddef>
#include <utility>
#include <vector>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::Result;
using foundation::translated;

namespace {

constexpr std::size_t kMostSyntheticAnalyzers = 1'000'000;

constexpr std::array<std::pair<std::string_view, Tab>, 5> kTabs{{{"general", Tab::general},
                                                                 {"capture", Tab::capture},
                                                                 {"proxy", Tab::proxy},
                                                                 {"analyze", Tab::analyze},
                                                                 {"appearance", Tab::appearance}}};

constexpr std::array<std::string_view, 7> kLanguages{"en", "de", "fr", "es", "ja", "zh-Hans", "ar"};

template <class Target>
std::vector<std::pair<std::string_view, Target>> tabChoices() {
  return {kTabs.begin(), kTabs.end()};
}

Option analyzersOption(WindowOptions& window) {
  const auto take = [&window](std::string_view value) {
    std::size_t count = 0;
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, count);
    if (error != std::errc() || stop != end || count > kMostSyntheticAnalyzers) {
      return Outcome(Error{translated("--analyzers is a number from 0 to %1",
                                      {std::to_string(kMostSyntheticAnalyzers)})});
    }
    window.syntheticAnalyzers = count;
    return done();
  };
  return {.name = "--analyzers",
          .value = "N",
          .help = "Show N made-up analyzers instead of the real ones.",
          .presence = Presence::window,
          .take = take};
}

Option languageOption(WindowOptions& window) {
  const auto take = [&window](std::string_view value) {
    for (const std::string_view language : kLanguages) {
      if (language != value) continue;
      window.language = language;
      return done();
    }
    return Outcome(
        Error{translated("--language is a code: %1, not “%2”",
                         {alternatives({kLanguages.begin(), kLanguages.end()}), value})});
  };
  return {.name = "--language",
          .value = "CODE",
          .help = "Speak en, de, fr, es, ja, zh-Hans or ar instead of the desktop's language.",
          .choices = {kLanguages.begin(), kLanguages.end()},
          .presence = Presence::window,
          .take = take};
}

}  // namespace

std::string_view nameOf(Tab tab) { return kTabs.at(static_cast<std::size_t>(tab)).first; }

Option formatOption(OutputFormat& format) {
  return choice<OutputFormat>("--format", "text|json",
                              "Print text for a person, or JSON for a program.", format,
                              {{"text", OutputFormat::text}, {"json", OutputFormat::json}});
}

Result<std::string> readKey(std::string_view word) {
  if (word.empty() || !foundation::isValidUtf8(word)) {
    return Error{translated("a key is text of at least one character, in UTF-8")};
  }
  return std::string(word);
}

Operand keyOperand(std::string& key) {
  return {.name = "KEY", .needs = "a KEY", .take = [&key](std::string_view word) {
            auto read = readKey(word);
            if (!read) return Outcome(read.error());
            key = *std::move(read);
            return done();
          }};
}

Operand fileOperand(std::filesystem::path& file) {
  return {.name = "FILE", .needs = "a FILE", .take = [&file](std::string_view word) {
            if (word.empty()) return Outcome(Error{translated("a FILE needs a name")});
            file = word;
            return done();
          }};
}

Option tabOption(Tab& tab) {
  return choice("--tab", "TAB",
                "The tab: general, capture, proxy, analyze or appearance (the fonts).", tab,
                tabChoices<Tab>());
}

Option tabOption(std::optional<Tab>& tab) {
  auto tabs = tabChoices<std::optional<Tab>>();
  tabs.emplace_back("all", std::nullopt);
  return choice("--tab", "TAB|all",
                "The tab: general, capture, proxy, analyze or appearance (the fonts); or all.", tab,
                std::move(tabs));
}

void addWindowOptions(std::vector<Option>& options, WindowOptions& window) {
  Option noProxy = flag("--no-proxy", "Leave the proxy's tab out.", window.hasProxyTab, false);
  noProxy.presence = Presence::window;
  options.push_back(std::move(noProxy));
  options.push_back(analyzersOption(window));
  options.push_back(languageOption(window));
}

Outcome checkTab(std::optional<Tab> tab, const WindowOptions& window) {
  if (tab == Tab::proxy && !window.hasProxyTab)
    return Error{translated("--no-proxy leaves no proxy tab to show")};
  return done();
}

}  // namespace zorvantine
