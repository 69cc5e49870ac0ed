// SPDX-License-Identifier: MIT
#include "desktop/DesktopPreferences.hpp"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>
#include <QVariantMap>

#include <algorithm>
#include <utility>

namespace qt {

namespace {

// How long the start may wait for the answer of the portal. A window that opens in the wrong colors
// is worse than one that opens later.
constexpr int kFirstAnswerMilliseconds = 200;
constexpr int kTogetherMilliseconds = 20;
// Text of other sizes could not be read.
constexpr double kSmallestTextScale = 0.5;
constexpr double kLargestTextScale = 4;

const QString& appearanceGroup() {
  static const QString name = QStringLiteral("org.freedesktop.appearance");
  return name;
}
const QString& interfaceGroup() {
  static const QString name = QStringLiteral("org.gnome.desktop.interface");
  return name;
}

// Three numbers from 0 to 1. Others mean that the desktop has no accent colour.
std::optional<appkit::RGBA> colorFrom(const QVariant& value) {
  if (!value.canConvert<QDBusArgument>()) return std::nullopt;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentSignature() != QLatin1String("(ddd)")) return std::nullopt;
  appkit::RGBA color;
  argument.beginStructure();
  argument >> color.red >> color.green >> color.blue;
  argument.endStructure();
  const auto isShare = [](double part) { return part >= 0 && part <= 1; };
  const bool isColor = isShare(color.red) && isShare(color.green) && isShare(color.blue);
  return isColor ? std::optional(color) : std::nullopt;
}

QDBusMessage question() {
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"),
      QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
  call << QStringList{appearanceGroup(), interfaceGroup()};
  return call;
}

}  // namespace

DesktopPreferences::DesktopPreferences(std::function<void()> changed)
    : changed_(std::move(changed)) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  announced_.setSingleShot(true);
  announced_.setInterval(kTogetherMilliseconds);
  announced_.callOnTimeout(&announced_, [this] { ask(); });
  const QDBusMessage call = question();
  bus.connect(call.service(), call.path(), call.interface(), QStringLiteral("SettingChanged"),
              &announced_, SLOT(start()));
  read(bus.call(call, QDBus::Block, kFirstAnswerMilliseconds));
}

void DesktopPreferences::ask() {
  auto* watcher =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question()), &announced_);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &announced_, [this, watcher] {
    watcher->deleteLater();
    if (watcher->isError()) return;
    read(watcher->reply());
    changed_();
  });
}

void DesktopPreferences::read(const QDBusMessage& reply) {
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return;
  const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
  const QVariantMap appearance = groups.value(appearanceGroup());
  switch (appearance.value(QStringLiteral("color-scheme")).toUInt()) {
    case 1: appearance_ = appkit::Appearance::dark; break;
    case 2: appearance_ = appkit::Appearance::light; break;
    default: appearance_ = std::nullopt;
  }
  const bool isHigh = appearance.value(QStringLiteral("contrast")).toUInt() == 1;
  contrast_ = isHigh ? appkit::Contrast::high : appkit::Contrast::normal;
  accent_ = colorFrom(appearance.value(QStringLiteral("accent-color")));
  const QVariantMap interface = groups.value(interfaceGroup());
  reducedMotion_ = appearance.value(QStringLiteral("reduced-motion")).toUInt() == 1 ||
                   !interface.value(QStringLiteral("enable-animations"), true).toBool();
  fontName_ = interface.value(QStringLiteral("font-name")).toString();
  const double scale = interface.value(QStringLiteral("text-scaling-factor"), 1.0).toDouble();
  textScale_ = std::clamp(scale, kSmallestTextScale, kLargestTextScale);
}

}  // namespace qt
