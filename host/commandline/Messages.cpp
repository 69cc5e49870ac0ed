// SPDX-License-Identifier: MIT
#include "commandline/Messages.hpp"

#include "QEVLog/QEVLog.hpp"
#include "commandline/TextForm.hpp"
#include "foundation/Diagnostics.hpp"

#include <algorithm>
#include <iostream>
#include <utility>

namespace zorvantine {

namespace {

void writeLogEntry(const QEVLog::LogEntry& entry) {
  QEVLog::LogEntry line = entry;
  line.terminator.clear();
  std::cerr << onOneLine(entry.filename + ':' + std::to_string(entry.line) + ' ' + entry.function +
                         ": " + line.text())
            << entry.terminator << std::flush;
}

}  // namespace

Messages::Messages() {
  QEVLog::setLogSink(writeLogEntry);
  foundation::setDiagnosticSink([this](std::string_view line) { take(line); });
}

Messages::~Messages() {
  foundation::setDiagnosticSink({});
  QEVLog::setLogSink({});
}

void Messages::say(std::string_view message) {
  const std::scoped_lock lock(mutex_);
  const auto includesMessage = [&](const std::string& said) {
    return said.find(message) != std::string::npos;
  };
  if (message.empty() || std::ranges::any_of(said_, includesMessage)) return;
  said_.emplace_back(message);
  std::cerr << "zorvantine: " << onOneLine(message) << std::endl;
}

void Messages::logDiagnostics() {
  const std::scoped_lock lock(mutex_);
  for (const std::string& line : std::exchange(held_, {})) logUnlessSaid(line);
}

void Messages::logDiagnosticsAsTheyCome() {
  logDiagnostics();
  const std::scoped_lock lock(mutex_);
  logsAsTheyCome_ = true;
}

void Messages::take(std::string_view line) {
  const std::scoped_lock lock(mutex_);
  if (logsAsTheyCome_) {
    logUnlessSaid(line);
  } else {
    held_.emplace_back(line);
  }
}

// A diagnostic that repeats a message consists of its origin and the message.
void Messages::logUnlessSaid(std::string_view line) {
  const auto endsLine = [&](const std::string& said) { return line.ends_with(said); };
  if (std::ranges::none_of(said_, endsLine)) QEVLog::logMessage(line, "reportDiagnostic(_:)");
}

}  // namespace zorvantine
