#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <source_location>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QEVLog {

// A value to print: text as it is, a number in decimal, a Boolean as "true" or "false".
class LogItem {
public:
  LogItem(std::string text) : text_(std::move(text)) {}
  LogItem(std::string_view text) : text_(text) {}
  LogItem(const char* text) : text_(text) {}
  LogItem(bool value) : text_(value ? "true" : "false") {}
  template <class Number>
    requires std::integral<Number> || std::floating_point<Number>
  LogItem(Number value) : text_(std::to_string(value)) {}

  const std::string& text() const { return text_; }

private:
  std::string text_;
};

// One call of `qevLog`, argument by argument.
struct LogEntry {
  std::vector<std::string> items;
  std::string filename;
  std::string function;
  std::int64_t line = 0;
  std::string separator;
  std::string terminator;

  // The items joined by the separator, then the terminator.
  std::string text() const;
};

using LogSink = std::function<void(const LogEntry&)>;

// Diagnostics for developers; never shown to the user. Prints the items, joined by the separator
// and closed by the terminator, with the place they come from. Any thread; never fails.
void qevLog(std::initializer_list<LogItem> items, std::string_view filename,
            std::string_view function, std::int64_t line, std::string_view separator,
            std::string_view terminator) noexcept;

// The module's convention: one ready-made message, from the place of the call. `function` is the
// name to log, character by character, for the name that the compiler knows says less.
//
//     logMessage("rewrote 3 keys", "migrate(defaults:)");
void logMessage(std::string_view message, std::string_view function,
                std::source_location place = std::source_location::current()) noexcept;

// Where entries go from now on; returns where they went before. An empty sink stands for the
// standard error stream. What a sink throws is dropped with the entry.
LogSink setLogSink(LogSink sink);

}  // namespace QEVLog
