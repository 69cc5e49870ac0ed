// A settings portal for tests. It is dark at first. Each line of its input, such as "color-scheme
// 2", changes a setting and announces that. It exits at the end of its input.

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMap>
#include <QSocketNotifier>
#include <QVariantMap>

#include <iostream>
#include <sstream>
#include <string>

namespace {

using Groups = QMap<QString, QVariantMap>;

const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");

class FakePortal final : public QDBusVirtualObject {
public:
  QString introspect(const QString& /*path*/) const override { return {}; }

  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    if (call.interface() != kInterface || call.member() != "ReadAll") return false;
    Groups answer;
    if (call.arguments().value(0).toStringList().contains(kGroup)) answer.insert(kGroup, settings_);
    return bus.send(call.createReply(QVariant::fromValue(answer)));
  }

  void set(const QString& setting, uint value) {
    settings_.insert(setting, value);
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kInterface, "SettingChanged");
    signal << kGroup << setting << QVariant::fromValue(QDBusVariant(value));
    QDBusConnection::sessionBus().send(signal);
  }

private:
  QVariantMap settings_{{"color-scheme", 1U}};
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  qDBusRegisterMetaType<Groups>();
  QDBusConnection bus = QDBusConnection::sessionBus();
  FakePortal portal;
  if (!bus.registerVirtualObject(kPath, &portal) ||
      !bus.registerService("org.freedesktop.portal.Desktop")) {
    std::cerr << "the bus does not take the portal: " << bus.lastError().message().toStdString()
              << '\n';
    return 1;
  }

  std::ios::sync_with_stdio(false);
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&portal] {
    do {
      std::string setting;
      uint value = 0;
      std::string line;
      if (!std::getline(std::cin, line)) return QCoreApplication::quit();
      std::istringstream(line) >> setting >> value;
      portal.set(QString::fromStdString(setting), value);
      // Lines that arrive together make the input readable only once.
    } while (std::cin.rdbuf()->in_avail() > 0);
  });
  std::cout << "ready" << std::endl;
  return QCoreApplication::exec();
}
