// SPDX-License-Identifier: MIT
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

constexpr std::string_view kThisFile = __FILE__;
constexpr std::string_view kThisFileInTree = "contracts/QEVLog/QEVLog.cpp";
static_assert(kThisFile.ends_with(kThisFileInTree));
// The root of the source tree, as the compiler names it.
constexpr std::string_view kRoot = kThisFile.substr(0, kThisFile.size() - kThisFileInTree.size());

std::string_view lastComponent(std::string_view path) {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

std::string_view withoutLastComponent(std::string_view path) {
  const auto slash = path.rfind('/');
  return path.substr(0, slash == std::string_view::npos ? 0 : slash);
}

bool isModuleName(std::string_view folder) {
  return !folder.empty() && folder.front() >= 'A' && folder.front() <= 'Z';
}

// The folder that names a file's module. In this tree it is the innermost folder that begins with a
// capital letter. Folders above the root mean nothing, so a file elsewhere, such as a host's, gets
// the folder that it lies in.
std::string_view moduleFolder(std::string_view path) {
  if (path.starts_with(kRoot)) {
    for (auto folders = withoutLastComponent(path.substr(kRoot.size())); !folders.empty();
         folders = withoutLastComponent(folders)) {
      if (isModuleName(lastComponent(folders))) return lastComponent(folders);
    }
  }
  return lastComponent(withoutLastComponent(path));
}

// What the log calls a source file: its module and name, as in "QEVSettings/QEVTimeZones.cpp".
std::string identifier(std::string_view path) {
  const std::string_view module = moduleFolder(path);
  const std::string name(lastComponent(path));
  return module.empty() ? name : std::string(module) + '/' + name;
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
    return;  // A message that cannot be logged is dropped.
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
