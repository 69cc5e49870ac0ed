// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Application.hpp"
#include "desktop/DesktopPreferences.hpp"
#include "foundation/ObservableObject.hpp"
#include "window/KeyMonitors.hpp"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QTimer>

#include <memory>

class QStyle;

namespace qt {

// Connects the QApplication of the process to the layer, for all windows together: turns of the
// main queue, appearance, fonts, key monitors and accessibility. The connection ends with its last
// owner. Main thread only.
class Runtime final : public QObject {
public:
  // `owned` is an application that the layer made: it gets the layer's style and fonts as well.
  enum class Origin { owned, adopted };

  // The runtime of the QApplication that runs, made at the first call. Stops the process with one
  // line when there is no QApplication, or when this is not its thread.
  static std::shared_ptr<Runtime> shared();
  // The same for an application that the layer has just made.
  static std::shared_ptr<Runtime> ofOwned(bool followsDesktop);

  Runtime(Origin origin, bool followsDesktop);
  ~Runtime() override;
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  bool reducedMotion() const { return desktop_ && desktop_->reducedMotion(); }
  // For each widget of a window; null where the whole application has the style.
  QStyle* widgetStyle() const { return widgetStyle_; }
  KeyMonitors& keyMonitors() { return keyMonitors_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void followDesktop();
  void applyFont();
  void applyAppearance();
  void platformChanged();
  void wake();
  void drain();

  QPointer<QApplication> application_;
  Origin origin_;
  KeyMonitors keyMonitors_;
  QStyle* widgetStyle_ = nullptr;  // the application's child
  // The appearance of the platform's palette, used where there is no portal.
  appkit::Appearance ownAppearance_ = appkit::Appearance::light;
  // The platform's font, before the desktop's preferences are applied.
  QFont ownFont_;
  QPalette hostPalette_;
  bool hostHasPalette_;
  QPalette ownPalette_;
  bool isSettingColors_ = false;
  // Every window reports the same change; the timer handles it once.
  QTimer platformChanged_;
  // Fires when repeated work of the main queue is due.
  QTimer repeated_;
  std::unique_ptr<DesktopPreferences> desktop_;
  foundation::Subscription appearance_;
};

}  // namespace qt
