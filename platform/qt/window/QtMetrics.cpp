// SPDX-License-Identifier: MIT
#include "window/QtMetrics.hpp"

#include "controls/HelpButton.hpp"
#include "controls/PushButton.hpp"
#include "controls/Switch.hpp"
#include "controls/TabBar.hpp"
#include "controls/choosers/ColorWell.hpp"
#include "controls/choosers/FileButton.hpp"
#include "controls/choosers/FontPicker.hpp"
#include "controls/menus/MenuButton.hpp"
#include "controls/text/TextField.hpp"
#include "paint/Pictures.hpp"
#include "paint/TextLines.hpp"

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

viewkit::Size sizeFrom(QSizeF size) { return {size.width(), size.height()}; }

// The size of a control that elides its text: no wider than it is offered.
viewkit::Size within(QSizeF size, const viewkit::ProposedSize& proposal) {
  const double offered = std::max(proposal.width.value_or(viewkit::kUnlimited), 0.0);
  return {std::min(size.width(), offered), size.height()};
}

class Sizer {
public:
  Sizer(const QtMetrics& metrics, viewkit::ProposedSize proposal)
      : metrics_(metrics), proposal_(proposal) {}

  viewkit::Size operator()(const viewkit::ButtonControl& button) const {
    return within(PushButton::sizeFor(button), proposal_);
  }
  viewkit::Size operator()(const viewkit::FileButtonControl& button) const {
    return within(FileButton::sizeFor(button), proposal_);
  }
  viewkit::Size operator()(const viewkit::HelpButtonControl&) const {
    return sizeFrom(HelpButton::sizeFor());
  }
  viewkit::Size operator()(const viewkit::FontPickerControl& picker) const {
    return sizeFrom(FontPicker::sizeFor(picker));
  }
  viewkit::Size operator()(const viewkit::TabBarControl& tabs) const {
    return within(TabBar::sizeFor(tabs), proposal_);
  }
  viewkit::Size operator()(const viewkit::ToggleControl& toggle) const {
    return sizeFrom(Switch::sizeFor(toggle));
  }
  viewkit::Size operator()(const viewkit::ColorWellControl&) const {
    return sizeFrom(ColorWell::sizeFor());
  }
  viewkit::Size operator()(const viewkit::MenuControl& menu) const {
    return within(MenuButton::sizeFor(menu), proposal_);
  }
  viewkit::Size operator()(const viewkit::TextFieldControl& field) const {
    return sizeFrom(TextField::sizeFor(field, proposal_));
  }
  viewkit::Size operator()(const viewkit::SelectableTextControl& selectable) const {
    return metrics_.measureText(selectable.text, proposal_.width).size;
  }
  // The content decides these sizes.
  viewkit::Size operator()(const viewkit::PlainButtonControl&) const { return {}; }
  viewkit::Size operator()(const viewkit::ScrollControl&) const { return {}; }
  viewkit::Size operator()(const viewkit::PopoverControl&) const { return {}; }

private:
  const QtMetrics& metrics_;
  viewkit::ProposedSize proposal_;
};

}  // namespace

viewkit::TextMetrics QtMetrics::measureText(const viewkit::TextVisual& text,
                                            std::optional<double> maxWidth) const {
  const auto lines = TextLines::of(text, maxWidth, std::nullopt, direction_);
  return {.size = sizeFrom(lines->size()),
          .firstBaseline = lines->firstBaseline(),
          .lastBaseline = lines->lastBaseline()};
}

viewkit::Size QtMetrics::imageSize(const std::string& path) const {
  return sizeFrom(pictureSize(path));
}

viewkit::Size QtMetrics::controlSize(const viewkit::Control& control,
                                     viewkit::ProposedSize proposal) const {
  return std::visit(Sizer(*this, proposal), control);
}

}  // namespace qt
