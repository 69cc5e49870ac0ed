// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/StringsFile.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/EventLoopTimer.hpp"
#include "qt/HttpTransport.hpp"
#include "qt/UpdateDialog.hpp"
#include "sparkle/SPUUpdater.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>

namespace sparkle {
namespace {

using foundation::Result;

// A local server that answers each connection with the same bytes and records the requests.
class Server {
public:
  Server() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
      QTcpSocket* const socket = server_.nextPendingConnection();
      QObject::connect(socket, &QTcpSocket::readyRead, [this, socket] {
        asked += socket->readAll().toStdString();
        if (answer.empty() || !asked.ends_with("\r\n\r\n")) return;
        socket->write(answer.data(), static_cast<qint64>(answer.size()));
        socket->disconnectFromHost();
      });
    });
  }

  std::string address() const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + "/appcast.xml";
  }
  void close() { server_.close(); }

  std::string answer;
  std::string asked;

private:
  QTcpServer server_;
};

std::string ok(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body;
}

class QtUpdates : public testing::Test {
protected:
  static bool waitFor(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < deadline) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
  }

  std::optional<Result<std::string>> fetch(const FeedRequest& request) {
    std::optional<Result<std::string>> outcome;
    const auto fetching =
        transport.fetch(request, [&](const Result<std::string>& answer) { outcome = answer; });
    EXPECT_FALSE(outcome) << "the completion is called later";
    waitFor([&] { return outcome.has_value(); });
    return outcome;
  }

  static QDialog* dialog() {
    QDialog* found = nullptr;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (widget->isVisible()) found = qobject_cast<QDialog*>(widget);
    }
    return found;
  }

  static std::string textOf(const QDialog& dialog) {
    std::string text;
    for (const QLabel* const label : dialog.findChildren<QLabel*>())
      text += label->text().toStdString() + "|";
    return text;
  }

  int argc = 1;
  char programName[5] = "test";
  char* argv[2] = {programName, nullptr};
  QApplication application{(qputenv("QT_QPA_PLATFORM", "offscreen"), argc), argv};
  Server server;
  qt::HttpTransport transport;
};

TEST_F(QtUpdates, HttpRequestSendsOnlyItsHeaders) {
  QEVSettings::HostIdentity::set({.id = "analyzer", .version = "3.2.1"});
  server.answer = ok("<rss/>");
  const auto outcome = fetch({.address = server.address(),
                              .headers = {{"X-System-Version", "Debian 12"}},
                              .longestAnswer = 6});
  ASSERT_TRUE(outcome);
  ASSERT_TRUE(*outcome) << outcome->error().message;
  EXPECT_EQ(**outcome, "<rss/>");

  std::map<std::string, std::string> headers;
  std::istringstream lines(server.asked);
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, "GET /appcast.xml HTTP/1.1\r");
  while (std::getline(lines, line) && line != "\r") {
    headers[line.substr(0, line.find(':'))] =
        line.substr(line.find(':') + 2, line.size() - line.find(':') - 3);
  }
  headers.erase("Host");
  headers.erase("Connection");
  EXPECT_EQ(headers, (std::map<std::string, std::string>{{"X-System-Version", "Debian 12"},
                                                         {"User-Agent", "analyzer/3.2.1"},
                                                         {"Accept-Language", "*"},
                                                         {"Accept-Encoding", "identity"},
                                                         {"Cache-Control", "no-cache"},
                                                         {"Pragma", "no-cache"}}));
}

TEST_F(QtUpdates, FailedFetchGivesReasonInLanguageOfPerson) {
  struct Case {
    std::string answer;
    std::string reason;
  };
  const std::vector<Case> cases = {
      {"HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", "Code 404"},
      {"HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n", "Code 204"},
      {ok(std::string(100, 'x')), "länger, als sie sein darf"},
      {"HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\nConnection: "
       "close\r\n\r\n",
       ""},
      {"", "zu lange für eine Antwort"},
  };
  foundation::Bundle::setMainResourceFolder(QEV_SOURCE_FOLDER "/host/resources");
  foundation::Bundle::setPreferredLanguages({"de"});
  for (const Case& each : cases) {
    server.answer = each.answer;
    server.asked.clear();
    const auto outcome = fetch({.address = server.address(),
                                .longestAnswer = 99,
                                .patience = std::chrono::seconds(each.answer.empty() ? 1 : 20)});
    ASSERT_TRUE(outcome) << each.reason;
    ASSERT_FALSE(*outcome) << each.reason;
    EXPECT_NE(outcome->error().message.find(each.reason), std::string::npos)
        << outcome->error().message;
  }
  server.close();
  const auto outcome = fetch({.address = server.address(), .longestAnswer = 99});
  ASSERT_TRUE(outcome);
  EXPECT_FALSE(*outcome);
}

TEST_F(QtUpdates, CheckOverHttpShowsDialogWithPlainText) {
  server.answer =
      ok("<rss><channel><item><sparkle:version>2.0</sparkle:version><description><![CDATA[<p>Reads "
         "<b>QUIC</b></p>"
         "<img src='http://tracker/'>]]></description></item></channel></rss>");
  const auto store = foundation::UserDefaults::inMemory();
  UpdaterConfiguration configuration;
  configuration.feedAddress = server.address();
  configuration.allowsInsecureFeed = true;
  configuration.applicationVersion = "<b>1.0</b>";
  configuration.store = store.get();
  configuration.transport = std::make_shared<qt::HttpTransport>();
  configuration.timer = std::make_shared<qt::EventLoopTimer>();
  configuration.userDriver = std::make_shared<qt::UpdateDialog>(
      [](std::string_view key) { return "[" + std::string(key) + "]"; });
  SPUUpdater updater(configuration);
  updater.start();
  updater.checkForUpdates();
  EXPECT_FALSE(updater.canCheckForUpdates());
  ASSERT_TRUE(waitFor([] { return dialog() != nullptr; }));
  EXPECT_TRUE(updater.canCheckForUpdates());
  EXPECT_EQ(dialog()->windowTitle().toStdString(), "[A new version is available]");
  EXPECT_NE(textOf(*dialog()).find("Version 2.0 can be installed; this is version <b>1.0</b>"),
            std::string::npos)
      << textOf(*dialog());
  EXPECT_EQ(dialog()->findChild<QPlainTextEdit*>()->toPlainText().toStdString(), "Reads QUIC");

  // The next outcome replaces the dialog, that of a scheduled check too.
  server.answer = "HTTP/1.1 500 Broken\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
  updater.checkForUpdates();
  ASSERT_TRUE(waitFor([&] { return updater.canCheckForUpdates(); }));
  EXPECT_EQ(dialog()->windowTitle().toStdString(), "[Could not check for updates]");

  server.answer =
      ok("<rss><channel><item><sparkle:version>3.0</sparkle:version></item></channel></rss>");
  store->removeObject("sparkle_lastCheck");
  updater.setAutomaticallyChecksForUpdates(true);
  ASSERT_TRUE(waitFor([] { return textOf(*dialog()).find("Version 3.0") != std::string::npos; }));
}

TEST_F(QtUpdates, DialogIsTranslatedIntoEachLanguage) {
  std::set<std::string> keys;
  qt::UpdateDialog driver([&](std::string_view key) { return *keys.emplace(key).first; });
  FoundUpdate update;
  update.item.notes = "All";
  update.package = "/tmp/2.deb";
  update.packageProblem = foundation::Error{"its signature is not valid"};
  driver.showUpdateFound(update);
  driver.showUpdateNotFound("1.0");
  driver.showUpdaterError({"the server does not answer"});
  ASSERT_EQ(keys.size(), 10U);
  EXPECT_NE(textOf(*dialog()).find("The server does not answer."), std::string::npos);

  for (const std::string language : {"en", "de", "fr", "es", "ja", "zh-Hans", "ar"}) {
    const auto table = foundation::readStringsFile(QEV_SOURCE_FOLDER "/host/resources/" + language +
                                                   ".lproj/Localizable.strings");
    ASSERT_TRUE(table) << table.error().message;
    for (const std::string& key : keys) {
      const auto entry = table->find(key);
      ASSERT_NE(entry, table->end()) << language << ": " << key;
      for (const char* const place : {"%1", "%2"}) {
        EXPECT_EQ(entry->second.find(place) != std::string::npos,
                  key.find(place) != std::string::npos)
            << language << ": " << entry->second;
      }
    }
  }
}

}  // namespace
}  // namespace sparkle
