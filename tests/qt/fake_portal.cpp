// SPDX-License-Identifier: MIT
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

struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
};
Q_DECLARE_METATYPE(Color)

QDBusArgument& operator<<(QDBusArgument& argument, const Color& color) {
  argument.beginStructure();
  argument << color.red << color.green << color.blue;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Color& color) {
  argument.beginStructure();
  argument >> color.red >> color.green >> color.blue;
  argument.endStructure();
  return argument;
}

namespace {

using Groups = QMap<QString, QVariantMap>;

const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kInterfaceGroup = QStringLiteral("org.gnome.desktop.interface");

class FakePortal final : public QDBusVirtualObject {
public:
  QString introspect(const QString& /*path*/) const override { return {}; }

  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    if (call.interface() != kInterface || call.member() != "ReadAll") return false;
    Groups answer;
    for (const QString& group : call.arguments().value(0).toStringList()) {
      if (settings_.contains(group)) answer.insert(group, settings_.value(group));
    }
    return bus.send(call.createReply(QVariant::fromValue(answer)));
  }

  void set(const std::string& setting, const std::string& text) {
    const bool isOfInterface = setting == "font-name" || setting == "text-scaling-factor";
    const QString& group = isOfInterface ? kInterfaceGroup : kGroup;
    const QVariant value = valueOf(setting, text);
    settings_[group].insert(QString::fromStdString(setting), value);
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kInterface, "SettingChanged");
    signal << group << QString::fromStdString(setting) << QVariant::fromValue(QDBusVariant(value));
    QDBusConnection::sessionBus().send(signal);
  }

private:
  static QVariant valueOf(const std::string& setting, const std::string& text) {
    if (setting == "font-name") return QString::fromStdString(text);
    if (setting == "text-scaling-factor") return std::stod(text);
    if (setting != "accent-color") return static_cast<uint>(std::stoul(text));
    Color color;
    std::istringstream(text) >> color.red >> color.green >> color.blue;
    return QVariant::fromValue(color);
  }

  Groups settings_{{kGroup, {{"color-scheme", 1U}}}};
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  qDBusRegisterMetaType<Groups>();
  qDBusRegisterMetaType<Color>();
  QDBusConnection bus = QDBusConnection::sessionBus();
  FakePortal portal;
  if (!bus.registerVirtualObject(kPath, &portal) ||
      !bus.registerService("org.freedesktop.portal.Desktop")) {
    std::cerr << "the bus does not take the portal: " << bus.lastError().message().toStdString()
              << '\n';
    return 1;
  }

  std::ios::sync_with_stdio(false);
  const QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&portal] {
    do {
      std::string line;
      if (!std::getline(std::cin, line)) return QCoreApplication::quit();
      const std::size_t space = line.find(' ');
      portal.set(line.substr(0, space), line.substr(space + 1));
      // Lines that arrive together make the input readable only once.
    } while (std::cin.rdbuf()->in_avail() > 0);
  });
  std::cout << "ready" << std::endl;
  return QCoreApplication::exec();
}
