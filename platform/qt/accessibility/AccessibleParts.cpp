// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleParts.hpp"

namespace qt {

namespace {

class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessiblePart(PartedWidget& whole, int index) : whole_(whole), index_(index) {}

  int index() const { return index_; }

  bool isValid() const override { return index_ < whole_.partCount(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&widget());
  }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  QAccessible::Role role() const override { return whole_.partRole(); }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  QString text(QAccessible::Text kind) const override {
    return isValid() && kind == QAccessible::Name ? whole_.partName(index_) : QString();
  }

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect part = whole_.partRect(index_);
    return {widget().mapToGlobal(part.topLeft()), part.size()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.selected = whole_.isCurrentPart(index_);
    state.focused = state.selected && widget().hasFocus();
    state.disabled = !widget().isEnabled() || !whole_.isPartEnabled(index_);
    state.invisible = !widget().isVisible();
    state.offscreen = !widget().rect().intersects(whole_.partRect(index_));
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }

  QStringList actionNames() const override { return {pressAction()}; }
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
  void doAction(const QString& name) override {
    if (isValid() && name == pressAction()) whole_.pressPart(index_);
  }

private:
  QWidget& widget() const { return whole_.partedWidget(); }

  PartedWidget& whole_;
  int index_;
};

}  // namespace

AccessibleParts::~AccessibleParts() {
  for (const QAccessible::Id id : made_) {
    if (id != 0) QAccessible::deleteAccessibleInterface(id);
  }
}

QAccessibleInterface* AccessibleParts::part(int index) const {
  if (index < 0 || index >= whole_.partCount()) return nullptr;
  const auto at = static_cast<size_t>(index);
  if (made_.size() <= at) made_.resize(at + 1);
  if (made_[at] == 0) {
    // Qt owns the interface until `deleteAccessibleInterface`.
    made_[at] = QAccessible::registerAccessibleInterface(new AccessiblePart(whole_, index));
  }
  return QAccessible::accessibleInterface(made_[at]);
}

int AccessibleParts::indexOf(const QAccessibleInterface* part) const {
  const auto* own = dynamic_cast<const AccessiblePart*>(part);
  return own && this->part(own->index()) == part ? own->index() : -1;
}

QAccessibleInterface* AccessibleParts::partAt(QPoint onScreen) const {
  const QPoint inWidget = whole_.partedWidget().mapFromGlobal(onScreen);
  for (int i = 0; i < whole_.partCount(); ++i) {
    if (whole_.partRect(i).contains(inWidget)) return part(i);
  }
  return nullptr;
}

}  // namespace qt
