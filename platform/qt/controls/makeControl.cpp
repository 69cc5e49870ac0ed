// SPDX-License-Identifier: MIT
#include "controls/makeControl.hpp"

#include "bridge/MirroredTree.hpp"
#include "controls/HelpButton.hpp"
#include "controls/PlainButton.hpp"
#include "controls/Popover.hpp"
#include "controls/PushButton.hpp"
#include "controls/ScrollArea.hpp"
#include "controls/Switch.hpp"
#include "controls/TabBar.hpp"
#include "controls/choosers/ColorWell.hpp"
#include "controls/choosers/FileButton.hpp"
#include "controls/choosers/FontPicker.hpp"
#include "controls/menus/MenuButton.hpp"
#include "controls/menus/MenuLabel.hpp"
#include "controls/text/SelectableText.hpp"
#include "controls/text/TextField.hpp"

namespace qt {

namespace {

class Maker {
public:
  Maker(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
      : tree_(tree), node_(node), parent_(parent) {}

  ControlWidget* operator()(const viewkit::ButtonControl&) const { return make<PushButton>(); }
  ControlWidget* operator()(const viewkit::PlainButtonControl&) const {
    return make<PlainButton>();
  }
  ControlWidget* operator()(const viewkit::FileButtonControl&) const { return make<FileButton>(); }
  ControlWidget* operator()(const viewkit::HelpButtonControl&) const { return make<HelpButton>(); }
  ControlWidget* operator()(const viewkit::FontPickerControl&) const { return make<FontPicker>(); }
  ControlWidget* operator()(const viewkit::TabBarControl&) const { return make<TabBar>(); }
  ControlWidget* operator()(const viewkit::PopoverControl&) const {
    return new Popover(tree_, node_, tree_.canvas());
  }
  ControlWidget* operator()(const viewkit::ToggleControl&) const { return make<Switch>(); }
  ControlWidget* operator()(const viewkit::ColorWellControl&) const { return make<ColorWell>(); }
  ControlWidget* operator()(const viewkit::MenuControl& menu) const {
    return menu.kind == viewkit::MenuControl::Kind::label ? make<MenuLabel>() : make<MenuButton>();
  }
  ControlWidget* operator()(const viewkit::TextFieldControl&) const { return make<TextField>(); }
  ControlWidget* operator()(const viewkit::SelectableTextControl&) const {
    return make<SelectableText>();
  }
  ControlWidget* operator()(const viewkit::ScrollControl&) const { return make<ScrollArea>(); }

private:
  template <class Widget>
  ControlWidget* make() const {
    return new Widget(tree_, node_, parent_);
  }

  MirroredTree& tree_;
  const viewkit::PresentationNode& node_;
  QWidget& parent_;
};

}  // namespace

ControlWidget* makeControl(MirroredTree& tree, const viewkit::PresentationNode& node,
                           QWidget& parent) {
  return std::visit(Maker(tree, node, parent), *node.control());
}

}  // namespace qt
