// SPDX-License-Identifier: MIT
#include "history/RecentChangesView.hpp"

#include "QEVCommonTools/Hairline.hpp"
#include "QEVCommonTools/MessageText.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "foundation/Bundle.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/LazyVStack.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace zorvantine {

using namespace viewkit;
using foundation::RememberedChange;
using QEVCommonTools::formatted;
using QEVCommonTools::Hairline;
using QEVCommonTools::MessageKind;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr double kMinWidth = 700;
constexpr double kMinHeight = 360;
constexpr double kTimeWidth = 160;
constexpr double kSettingWidth = 220;
constexpr double kValueWidth = 140;
constexpr std::size_t kLongestValue = 60;
constexpr std::size_t kLongestSpokenValue = 200;

std::string localized(std::string_view key) {
  return foundation::Bundle::mainBundle().localizedString(key);
}

using Cells = std::array<std::string, 4>;

View cells(const Cells& texts) {
  const auto cell = [](const std::string& text, double width) {
    return Text(text).lineLimit(1).frame(
        FixedFrame{.width = width, .alignment = Alignment::leading()});
  };
  const View last = Text(texts[3]).lineLimit(1).frame(FlexibleFrame{
      .minWidth = kValueWidth, .maxWidth = kUnlimited, .alignment = Alignment::leading()});
  return HStack({.spacing = points(Spacing::s6)},
                {cell(texts[0], kTimeWidth), cell(texts[1], kSettingWidth),
                 cell(texts[2], kValueWidth), last})
      .padding(Edges::horizontal, Spacing::s6)
      .padding(Edges::vertical, Spacing::s3);
}

// Shown from left to right in every language, by an invisible mark before it.
std::string leftToRight(const std::string& time) { return "\u200E" + time; }

// Spoken when it appears. An empty text is no view.
View remark(const std::string& text) {
  if (text.empty()) return View();
  return Text(text).lineLimit(2).foreground(Color::secondary()).accessibilityRole(Role::alert);
}

int itemOf(const std::vector<RememberedChange>& changes, std::int64_t number) {
  const auto found = std::ranges::find(changes, number, &RememberedChange::number);
  return found != changes.end() ? static_cast<int>(found - changes.begin()) : -1;
}

}  // namespace

View RecentChangesView::body() const {
  return VStack({.spacing = 0},
                {
                    cells({localized("Time"), localized("Setting"), localized("Before"),
                           localized("After")})
                        .font(Font::body().semibold())
                        .foreground(Color::secondary()),
                    Hairline{Color::separator()},
                    list(),
                    Hairline{Color::separator()},
                    footer(),
                })
      .frame(FlexibleFrame{.minWidth = kMinWidth,
                           .maxWidth = kUnlimited,
                           .minHeight = kMinHeight,
                           .maxHeight = kUnlimited})
      .background(Color::windowBackground());
}

View RecentChangesView::list() const {
  return ScrollViewReader([self = *this](const ScrollProxy& proxy) {
    const auto& changes = self.model->changes();
    const auto select = [self, proxy](int item) {
      self.selectItem(item);
      proxy.scrollTo(std::int64_t{item});
    };
    const ListItems items{.count = static_cast<int>(changes.size()),
                          .selected = itemOf(changes, self.selected),
                          .select = select};
    const auto row = [self](std::size_t item) { return self.row(self.model->changes()[item]); };
    return ScrollView({.list = items},
                      LazyVStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
                                 {.count = changes.size(), .row = row}))
        .accessibilityLabel(localized("Recent Changes"))
        .background(Color::controlBackground());
  });
}

View RecentChangesView::row(const RememberedChange& change) const {
  const bool isSelected = change.number == selected;
  const std::string time = localTimeText(change.time);
  const std::string title = settingTitle(change.key);
  return cells({leftToRight(time), title,
                settingValueText(change.key, change.before, kLongestValue),
                settingValueText(change.key, change.after, kLongestValue)})
      .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()})
      .foreground(isSelected ? Color::selectedText() : Color::primary())
      .background(isSelected ? Color::accent() : Color::clear())
      .onTap([self = *this, number = change.number] { self.selected.set(number); })
      .help(change.key + "\n" + change.program)
      .accessibilityRole(Role::listItem)
      .accessibilitySelected(isSelected)
      .accessibilityLabel(
          formatted(localized("%@, %@, before: %@, after: %@"),
                    {time, title, settingValueText(change.key, change.before, kLongestSpokenValue),
                     settingValueText(change.key, change.after, kLongestSpokenValue)}));
}

View RecentChangesView::footer() const {
  const auto& changes = model->changes();
  const int item = itemOf(changes, selected);
  const auto* change = item >= 0 ? &changes[static_cast<std::size_t>(item)] : nullptr;
  const std::string obstacle = change != nullptr ? model->obstacle(*change) : "";
  return HStack({.spacing = points(Spacing::s6)},
                {
                    QEVCommonTools::messageText(model->problem(), MessageKind::problem),
                    remark(changes.empty() ? model->emptyText() : obstacle),
                    Spacer(),
                    Button(localized("Put Back"),
                           [self = *this] { self.model->putBack(self.selected); })
                        .disabled(change == nullptr || !obstacle.empty()),
                })
      .padding(Spacing::s6);
}

void RecentChangesView::selectItem(int item) const {
  const auto& changes = model->changes();
  if (item >= 0 && std::cmp_less(item, changes.size()))
    selected.set(changes[static_cast<std::size_t>(item)].number);
}

}  // namespace zorvantine
