// SPDX-License-Identifier: MIT
#include "window/QtMessages.hpp"

#include "QEVLog/QEVLog.hpp"

#include <QString>

#include <atomic>

namespace zorvantine {

namespace {

std::atomic<void (*)()> actBeforeStop = nullptr;

void take(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type != QtCriticalMsg && type != QtFatalMsg) return;
  if (type == QtFatalMsg) {
    if (const auto act = actBeforeStop.load()) act();
  }
  QEVLog::logMessage(message.toStdString(), "qInstallMessageHandler");
}

}  // namespace

QtMessages::QtMessages() { qInstallMessageHandler(take); }

QtMessages::~QtMessages() {
  qInstallMessageHandler(nullptr);
  actBeforeStop = nullptr;
}

void QtMessages::beforeStop(void (*act)()) { actBeforeStop = act; }

}  // namespace zorvantine
