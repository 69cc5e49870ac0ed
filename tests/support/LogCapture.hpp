#pragma once

#include "QEVLog/QEVLog.hpp"

#include <string>
#include <utility>
#include <vector>

namespace support {

// Takes what is logged as long as it lives.
class LogCapture {
public:
  LogCapture() = default;
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;
  ~LogCapture() { QEVLog::setLogSink(std::move(before_)); }

  const std::vector<QEVLog::LogEntry>& entries() const { return entries_; }

  // Of each entry the items and what joins and ends them.
  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const QEVLog::LogEntry& entry : entries_) texts.push_back(entry.text());
    return texts;
  }

private:
  std::vector<QEVLog::LogEntry> entries_;
  QEVLog::LogSink before_ =
      QEVLog::setLogSink([this](const QEVLog::LogEntry& entry) { entries_.push_back(entry); });
};

}  // namespace support
