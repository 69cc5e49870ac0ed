// SPDX-License-Identifier: MIT
#include "QEVLog/QEVLog.hpp"

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>

namespace QEVLog {
namespace {

using ::testing::ElementsAre;

// Both claim to stand in another file.
void logFromAHostsFile();
void logFromAFileWithoutFolder();

class QEVLogTest : public ::testing::Test {
protected:
  ~QEVLogTest() override { setLogSink(nullptr); }

  std::optional<LogEntry> last;
  LogSink previous = setLogSink([this](const LogEntry& entry) { last = entry; });
};

TEST_F(QEVLogTest, CallReachesTheSinkWithEveryArgument) {
  qevLog({"ports", 8080, true, -1.5}, "Room/File.cpp", "run(with:)", 12, ", ", "!\n");
  ASSERT_TRUE(last);
  EXPECT_THAT(last->items, ElementsAre("ports", "8080", "true", "-1.500000"));
  EXPECT_EQ(last->text(), "ports, 8080, true, -1.500000!\n");
  EXPECT_EQ(last->filename, "Room/File.cpp");
  EXPECT_EQ(last->function, "run(with:)");
  EXPECT_EQ(last->line, 12);
}

TEST_F(QEVLogTest, MessageNamesThePlaceOfTheCall) {
  logMessage("done", "migrateIfNeeded(defaults:)");
  const int line = __LINE__ - 1;
  ASSERT_TRUE(last);
  EXPECT_EQ(last->text(), "done\n");
  EXPECT_EQ(last->filename, "QEVLog/QEVLogTest.cpp");
  EXPECT_EQ(last->function, "migrateIfNeeded(defaults:)");
  EXPECT_EQ(last->line, line);
}

TEST_F(QEVLogTest, FileOutsideTheTreeIsNamedAfterItsOwnFolder) {
  logFromAHostsFile();
  ASSERT_TRUE(last);
  EXPECT_EQ(last->filename, "source/main.cpp");
  EXPECT_EQ(last->line, 7);
  logFromAFileWithoutFolder();
  EXPECT_EQ(last->filename, "main.cpp");
}

TEST_F(QEVLogTest, SinkCanThrowLogAndReplaceItself) {
  setLogSink([](const LogEntry&) { throw std::runtime_error("full"); });
  logMessage("lost", "f");

  int depth = 0;
  setLogSink([&](const LogEntry&) {
    if (++depth < 3) logMessage("again", "f");
    setLogSink([this](const LogEntry& entry) { last = entry; });
  });
  logMessage("first", "f");
  EXPECT_EQ(depth, 3);
  logMessage("later", "f");
  EXPECT_EQ(last->text(), "later\n");
}

// The line directives hold up to the end of the file.
void logFromAHostsFile() {
#line 7 "/Users/Max/Sniffer/source/main.cpp"
  logMessage("done", "main()");
}

void logFromAFileWithoutFolder() {
#line 7 "main.cpp"
  logMessage("done", "main()");
}

}  // namespace
}  // namespace QEVLog
