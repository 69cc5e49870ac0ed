#include "QEVLog/QEVLog.hpp"

#include <cstdio>
#include <memory>
#include <mutex>

namespace QEVLog {

namespace {

void printToStandardError(const LogEntry& entry) {
  const std::string line = entry.filename + ':' + std::to_string(entry.line) + ' ' +
                           entry.function + ": " + entry.text();
  std::fwrite(line.data(), 1, line.size(), stderr);
}

class Destination {
public:
  std::shared_ptr<const LogSink> current() {
    const std::scoped_lock lock(mutex_);
    return sink_;
  }

  LogSink exchange(LogSink sink) {
    auto next = std::make_shared<const LogSink>(std::move(sink));
    const std::scoped_lock lock(mutex_);
    sink_.swap(next);
    return *next;
  }

private:
  std::mutex mutex_;
  std::shared_ptr<const LogSink> sink_ = std::make_shared<const LogSink>();
};

Destination& destination() {
  static Destination kept;
  return kept;
}

// The module and the name of a source file, as in "QEVSettings/QEVTimeZones.cpp", without the path
// of the machine that built it. A module's folder begins with a capital letter, the folders in it
// with a small one. A file outside of a module is known by its own folder.
std::string identifier(std::string_view path) {
  const auto lastSlash = path.rfind('/');
  if (lastSlash == std::string_view::npos) return std::string(path);
  const std::string_view name = path.substr(lastSlash);
  std::string_view folders = path.substr(0, lastSlash);
  const std::string_view own = folders.substr(folders.rfind('/') + 1);
  while (!folders.empty()) {
    const auto slash = folders.rfind('/');
    const std::string_view folder = folders.substr(slash + 1);
    if (!folder.empty() && folder.front() >= 'A' && folder.front() <= 'Z') {
      return std::string(folder) + std::string(name);
    }
    folders = folders.substr(0, slash == std::string_view::npos ? 0 : slash);
  }
  return std::string(own) + std::string(name);
}

}  // namespace

std::string LogEntry::text() const {
  std::string result;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) result += separator;
    result += items[i];
  }
  return result + terminator;
}

void qevLog(std::initializer_list<LogItem> items, std::string_view filename,
            std::string_view function, std::int64_t line, std::string_view separator,
            std::string_view terminator) noexcept {
  try {
    LogEntry entry{.items = {},
                   .filename = std::string(filename),
                   .function = std::string(function),
                   .line = line,
                   .separator = std::string(separator),
                   .terminator = std::string(terminator)};
    for (const LogItem& item : items) entry.items.push_back(item.text());
    const auto sink = destination().current();
    *sink ? (*sink)(entry) : printToStandardError(entry);
  } catch (...) {
    // A diagnostic that cannot be made is not worth stopping for.
    return;
  }
}

void logMessage(std::string_view message, std::string_view function,
                std::source_location place) noexcept {
  try {
    qevLog({message}, identifier(place.file_name()), function, place.line(), ", ", "\n");
  } catch (...) {
    return;
  }
}

LogSink setLogSink(LogSink sink) { return destination().exchange(std::move(sink)); }

}  // namespace QEVLog
