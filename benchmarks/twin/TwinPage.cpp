// SPDX-License-Identifier: MIT
#include "TwinPage.hpp"

#include "AnalyzerList.hpp"
#include "window/Task.hpp"

#include <QLineEdit>
#include <QScrollArea>
#include <QTabBar>
#include <QVBoxLayout>

#include <stdexcept>

namespace twin {

namespace {

constexpr QSize kSize(kWindowWidth, kWindowHeight);

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

}  // namespace

TwinPage::TwinPage() {
  page_.setWindowTitle(QStringLiteral("Settings"));
  page_.resize(kSize);
}

QRect TwinPage::analyzer(int row) {
  const AnalyzerList& list = page_.list();
  const QRect inList = list.visualRect(list.model()->index(row, 0));
  return inList.translated(list.viewport()->mapTo(&page_, QPoint()));
}

QRect TwinPage::details() { return placeOf(page_.details()); }

QRect TwinPage::firstSwitch() { return placeOf(switchButton()); }

bool TwinPage::isFirstSwitchOn() { return switchButton().isChecked(); }

const SwitchButton& TwinPage::switchButton() const {
  for (const QAbstractButton* button : page_.details().findChildren<QAbstractButton*>()) {
    if (const auto* found = dynamic_cast<const SwitchButton*>(button)) return *found;
  }
  throw std::runtime_error("the page has no switch");
}

QRect TwinPage::firstPorts() { return placeOf(*page_.details().findChild<QLineEdit*>()); }

QWidget& TwinPage::tabWindow() {
  if (tabs_) return *tabs_;
  tabs_ = std::make_unique<QTabWidget>();
  general_ = new GeneralPage(*store_);
  tabs_->addTab(general_, QStringLiteral("General"));
  // Made when it is first shown.
  auto* analyzer = new QWidget;
  auto* layout = new QVBoxLayout(analyzer);
  layout->setContentsMargins({});
  tabs_->addTab(analyzer, QStringLiteral("Analyzer"));
  QObject::connect(tabs_.get(), &QTabWidget::currentChanged, tabs_.get(),
                   [this, layout](int index) {
                     if (index == 1 && layout->isEmpty())
                       layout->addWidget(new AnalyzerPage(*store_));
                   });
  tabs_->resize(kSize);
  return *tabs_;
}

QRect TwinPage::tab(int index) {
  const QTabBar& bar = *tabs_->tabBar();
  return bar.tabRect(index).translated(bar.mapTo(tabs_.get(), QPoint()));
}

QRect TwinPage::tabContent() { return placeOf(*tabs_->currentWidget()); }

QRect TwinPage::timeZoneMenu() { return placeOf(general_->timeZones()); }

}  // namespace twin
