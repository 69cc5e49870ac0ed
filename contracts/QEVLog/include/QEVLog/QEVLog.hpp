// SPDX-License-Identifier: MIT
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

// A value to log. A number is written in decimal, a Boolean as "true" or "false".
//
//     qevLog({"ports", 8080, true}, "Capture.cpp", "start()", 12, ", ", "\n");
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

// The arguments of one call of `qevLog`.
//
//     setLogSink([](const LogEntry& entry) { std::clog << entry.text(); });
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

// Logs a message for developers; the user never sees it. The message is the items joined by the
// separator, then the terminator. `filename`, `function` and `line` say where it comes from. May be
// called on any thread; never fails.
void qevLog(std::initializer_list<LogItem> items, std::string_view filename,
            std::string_view function, std::int64_t line, std::string_view separator,
            std::string_view terminator) noexcept;

// Logs one message in the module's form: the separator ", ", the terminator "\n", and the place of
// the call. `function` is logged as it is, because the compiler's name lacks the argument labels.
//
//     logMessage("rewrote 3 keys", "migrate(defaults:)");
void logMessage(std::string_view message, std::string_view function,
                std::source_location place = std::source_location::current()) noexcept;

// Sets the receiver of log entries and returns the former one. Without a sink, entries go to the
// standard error stream. An exception of a sink is ignored, and its entry is lost.
LogSink setLogSink(LogSink sink);

}  // namespace QEVLog
