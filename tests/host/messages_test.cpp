// SPDX-License-Identifier: MIT
#include "commandline/Messages.hpp"
#include "foundation/Diagnostics.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>

namespace {

using foundation::reportDiagnostic;
using testing::HasSubstr;
using zorvantine::Messages;

class MessagesTest : public testing::Test {
protected:
  MessagesTest() : standardError_(std::cerr.rdbuf(written_.rdbuf())) {}
  ~MessagesTest() override { std::cerr.rdbuf(standardError_); }

  std::string takeWritten() {
    std::string text = written_.str();
    written_.str("");
    return text;
  }

  Messages messages;

private:
  std::ostringstream written_;
  std::streambuf* standardError_;
};

TEST_F(MessagesTest, MessageSaidBeforeIsNotRepeated) {
  messages.say("");
  messages.say("the store was restored\nfrom \x1b[2J");
  messages.say("from \x1b[2J");
  messages.say("there is no key");
  EXPECT_EQ(takeWritten(),
            "zorvantine: the store was restored\\nfrom \\x1b[2J\nzorvantine: there is no key\n");
}

TEST_F(MessagesTest, DiagnosticsAreHeldBackUntilLoggedWithoutWhatWasSaid) {
  reportDiagnostic("preferences: the store was restored");
  reportDiagnostic("resources: \x1b]0;title\x07 is missing");
  messages.say("the store was restored");
  EXPECT_EQ(takeWritten(), "zorvantine: the store was restored\n");
  messages.logDiagnostics();
  const std::string logged = takeWritten();
  EXPECT_THAT(logged, HasSubstr("resources: \\x1b]0;title\\x07 is missing\n"));
  EXPECT_THAT(logged, testing::Not(HasSubstr("restored")));
  messages.logDiagnostics();
  EXPECT_EQ(takeWritten(), "");
}

TEST_F(MessagesTest, DiagnosticsOfALongRunAreLoggedAtOnce) {
  reportDiagnostic("before");
  messages.logDiagnosticsAsTheyCome();
  EXPECT_THAT(takeWritten(), HasSubstr("before\n"));
  reportDiagnostic("after");
  EXPECT_THAT(takeWritten(), HasSubstr("after\n"));
}

}  // namespace
