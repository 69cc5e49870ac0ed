// SPDX-License-Identifier: MIT
#pragma once

#include "QEVLog/QEVLog.hpp"

#include <string>
#include <utility>
#include <vector>

namespace support {

// Collects the log entries that are written while it exists.
class LogCapture {
public:
  LogCapture() = default;
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;
  ~LogCapture() { QEVLog::setLogSink(std::move(before_)); }

  const std::vector<QEVLog::LogEntry>& entries() const { return entries_; }

  // The text of each entry, with its separators and its terminator.
  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    texts.reserve(entries_.size());
    for (const QEVLog::LogEntry& entry : entries_) texts.push_back(entry.text());
    return texts;
  }

private:
  std::vector<QEVLog::LogEntry> entries_;
  QEVLog::LogSink before_ =
      QEVLog::setLogSink([this](const QEVLog::LogEntry& entry) { entries_.push_back(entry); });
};

}  // namespace support
