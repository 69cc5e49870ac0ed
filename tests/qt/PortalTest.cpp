// SPDX-License-Identifier: MIT
#include "appkit/Application.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/Application.hpp"
#include "qt/Window.hpp"
#include "viewkit/Text.hpp"
#include "viewkit/ViewHost.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <cmath>
#include <functional>
#include <memory>
#include <optional>

namespace qt {
namespace {

// A private session bus.
class Bus {
public:
  Bus() {
    QFile configuration(folder_.filePath("bus.conf"));
    EXPECT_TRUE(configuration.open(QFile::WriteOnly));
    configuration.write(
        QStringLiteral(R"(<busconfig><type>session</type><listen>unix:path=%1</listen>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>)")
            .arg(folder_.filePath("bus"))
            .toUtf8());
    configuration.close();
    process_.start("dbus-daemon", {"--nofork", "--nopidfile", "--print-address",
                                   "--config-file=" + configuration.fileName()});
    EXPECT_TRUE(process_.waitForReadyRead(20'000)) << "there is no dbus-daemon";
    address_ = process_.readLine().trimmed();
  }
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;
  ~Bus() {
    process_.kill();
    process_.waitForFinished();
  }

  const QByteArray& address() const { return address_; }

private:
  QTemporaryDir folder_;
  QProcess process_;
  QByteArray address_;
};

// A settings portal in another process: fake_portal.cpp.
class Portal {
public:
  Portal() {
    process_.start(QEV_FAKE_PORTAL, {});
    EXPECT_TRUE(process_.waitForReadyRead(20'000)) << process_.readAllStandardError().toStdString();
  }
  Portal(const Portal&) = delete;
  Portal& operator=(const Portal&) = delete;
  ~Portal() {
    process_.closeWriteChannel();
    process_.waitForFinished();
  }

  void announce(const QByteArray& setting, const QByteArray& value) {
    process_.write(setting + ' ' + value + '\n');
    process_.waitForBytesWritten();
  }

private:
  QProcess process_;
};

// A window on a desktop that is dark at first.
class PortalTest : public testing::Test {
protected:
  PortalTest() { appkit::Application::sharedApplication().setAppearance(std::nullopt); }
  ~PortalTest() override { appkit::Application::sharedApplication().setAppearance(std::nullopt); }

  static QByteArray busAddress(const Bus& bus) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address());
    return bus.address();
  }

  bool becomes(appkit::Appearance appearance) {
    return QTest::qWaitFor([&] { return looksDark() == (appearance == appkit::Appearance::dark); },
                           20'000);
  }
  bool looksDark() { return window.widget().grab().toImage().pixelColor(3, 3).lightness() < 128; }

  // Constructed in this order.
  Bus bus;
  QByteArray address = busAddress(bus);
  Portal portal;
  int argumentCount = 1;
  char programName[12] = "portal_test";
  char* arguments[2] = {programName, nullptr};
  Application application{argumentCount, arguments, Application::Display::screen};
  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  Window window{{.title = "Test",
                 .size = {200, 100},
                 .environment = {.defaultStore = *store},
                 .root = viewkit::Text("text")}};
};

TEST_F(PortalTest, WindowFollowsDesktopUnlessApplicationSetsAppearance) {
  using appkit::Appearance;
  window.show();
  EXPECT_TRUE(looksDark()) << "before its first turn of the event loop";
  for (const auto& [scheme, appearance] :
       {std::pair{2, Appearance::light}, {1, Appearance::dark}, {0, Appearance::light}}) {
    portal.announce("color-scheme", QByteArray::number(scheme));
    EXPECT_TRUE(becomes(appearance)) << scheme;
  }

  auto& shared = appkit::Application::sharedApplication();
  shared.setAppearance(Appearance::light);
  portal.announce("color-scheme", "1");
  // Once this later change has arrived, the color scheme has too.
  portal.announce("reduced-motion", "1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return application.reducedMotion(); }, 20'000));
  EXPECT_FALSE(looksDark());
  shared.setAppearance(std::nullopt);
  EXPECT_TRUE(becomes(Appearance::dark));

  shared.setAppearance(Appearance::dark);
  portal.announce("color-scheme", "2");
  portal.announce("reduced-motion", "0");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !application.reducedMotion(); }, 20'000));
  EXPECT_TRUE(looksDark());
}

TEST_F(PortalTest, ContrastAccentAndTextFollowDesktop) {
  auto& shared = appkit::Application::sharedApplication();
  window.show();
  const auto becomesTrue = [](const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, 20'000);
  };
  EXPECT_EQ(shared.contrast(), appkit::Contrast::normal);
  portal.announce("contrast", "1");
  EXPECT_TRUE(becomesTrue([&] { return shared.contrast() == appkit::Contrast::high; }));
  EXPECT_GE(appkit::contrastBetween(shared.palette().secondary, shared.palette().windowBackground),
            7);
  portal.announce("contrast", "0");
  EXPECT_TRUE(becomesTrue([&] { return shared.contrast() == appkit::Contrast::normal; }));

  const appkit::RGBA own = shared.palette().accent;
  portal.announce("accent-color", "0.9 0.2 0.1");
  EXPECT_TRUE(becomesTrue([&] { return shared.palette().accent != own; }));
  EXPECT_GT(shared.palette().accent.red, shared.palette().accent.blue);
  portal.announce("accent-color", "-1 -1 -1");
  EXPECT_TRUE(becomesTrue([&] { return shared.palette().accent == own; }));

  const double size = QApplication::font().pointSizeF();
  const auto isAsLarge = [&](double scale) {
    return std::abs(QApplication::font().pointSizeF() - size * scale) < 0.1;
  };
  const double height = window.host().sizeThatFits({}).height;
  portal.announce("text-scaling-factor", "2");
  EXPECT_TRUE(becomesTrue([&] { return isAsLarge(2); }));
  EXPECT_TRUE(becomesTrue([&] { return window.host().sizeThatFits({}).height > 1.5 * height; }))
      << "the open window follows";
  portal.announce("text-scaling-factor", "1");
  EXPECT_TRUE(becomesTrue([&] { return isAsLarge(1); }));

  portal.announce("font-name", "DejaVu Serif Bold 14");
  EXPECT_TRUE(becomesTrue([&] { return QApplication::font().pointSizeF() == 14; }));
  EXPECT_EQ(QApplication::font().family(), "DejaVu Serif");
  EXPECT_TRUE(QApplication::font().bold());
}

}  // namespace
}  // namespace qt
