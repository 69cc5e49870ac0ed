// SPDX-License-Identifier: MIT
#include "find/FoundList.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/ScrollView.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::formatted;
using QEVCommonTools::kCornerMed;
using QEVCommonTools::klear;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr double kWidth = 360;
constexpr double kHighest = 330;

std::string summary(const SettingsFinder& finder) {
  if (finder.found().count == 0 && !finder.isSearching()) return localized("No setting found");
  return formatted(localized("Results: %@"), {std::to_string(finder.found().count)});
}

View row(const FoundSetting& found, bool isSelected) {
  const Color title = isSelected ? Color::selectedText() : Color::primary();
  const std::string where = placeText(found);
  const Color place = isSelected ? Color::selectedText() : Color::secondary();
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s1)},
                {
                    Text(found.title).foreground(title).lineLimit(1),
                    Text(where.empty() ? localized("Tab") : where)
                        .font(Font::caption())
                        .foreground(place)
                        .lineLimit(1),
                })
      .padding(Edges::vertical, Spacing::s3)
      .padding(Edges::leading, Spacing::s5)
      .padding(Edges::trailing, Spacing::s7)
      .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::leading()})
      .background(isSelected ? Color::accent() : klear())
      .clipped(kCornerMed);
}

}  // namespace

View FoundList::body() const {
  const std::shared_ptr<SettingsFinder> model = finder.get();
  const int selected = model->selected();
  const auto& best = model->found().best;
  std::vector<int> positions(best.size());
  std::iota(positions.begin(), positions.end(), 0);
  const auto resultRow = [&](int position) {
    return row(best[static_cast<std::size_t>(position)], position == selected)
        .onTap([model, position] { model->choose(position); })
        .accessibilityRole(Role::listItem)
        .accessibilitySelected(position == selected)
        .id(std::int64_t{position});
  };
  const View rows =
      VStack({.spacing = 0},
             {forEach(
                 positions, [](int position) { return std::int64_t{position}; }, resultRow)});
  const ListItems items{.count = static_cast<int>(best.size()),
                        .selected = selected,
                        .select = [model](int position) { model->select(position); }};
  const View list = ScrollViewReader([rows, items, selected](const ScrollProxy& views) {
    return ScrollView({.list = items}, rows)
        .accessibilityLabel(localized("Find"))
        .onChange<int>(selected, [views](int position) { views.scrollTo(std::int64_t{position}); });
  });
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s4)},
                {
                    Text(summary(*model))
                        .font(Font::caption())
                        .foreground(Color::secondary())
                        .accessibilityRole(Role::alert)
                        .padding(Edges::horizontal, Spacing::s5),
                    best.empty() ? View() : list.frame(FlexibleFrame{.maxHeight = kHighest}),
                })
      .padding(Spacing::s4)
      .frame(FixedFrame{.width = kWidth, .alignment = Alignment::leading()});
}

}  // namespace QEVSettings
