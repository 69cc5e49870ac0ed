// SPDX-License-Identifier: MIT
#include "analyzers/AnalyzertSettingRowView.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerMed;
using QEVCommonTools::klear;
using QEVCommonTools::Spacing;

View AnalyzertSettingRowView::body() const {
  return Text(model->pluginStruct.get().plugInTitle)
      .font(Font::body())
      .foreground(model->isActive ? Color::selectedText() : Color::primary())
      .padding(Spacing::s5)
      .frame(FixedFrame{.width = 150, .alignment = Alignment::leading()})
      .background(model->isActive ? Color::accent() : klear())
      .clipped(kCornerMed)
      .accessibilityRole(Role::listItem)
      .accessibilitySelected(model->isActive);
}

}  // namespace QEVSettings
