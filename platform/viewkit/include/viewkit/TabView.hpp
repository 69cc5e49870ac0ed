// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <string>
#include <utility>
#include <vector>

namespace viewkit {

// A page of a tab view, and the tab that shows it.
//
//     std::vector<Tab<Page>> tabs{{Page::general, "General", "slider.horizontal.3", general},
//                                 {Page::fonts, "Fonts", "character.magnify", fonts}};
//     TabView(page.binding(), std::move(tabs))
template <class Tag>
struct Tab {
  Tag tag;
  std::string title;
  SymbolName symbol;
  View page;
};

namespace detail {
// A Tab whose tag is a number. See Tab.
struct TabPage {
  std::int64_t tag;
  std::string title;
  SymbolName symbol;
  View page;
};
View makeTabView(std::vector<TabPage> pages, std::int64_t selected,
                 std::function<void(std::int64_t)> select, View header, View accessory);
}  // namespace detail

// A bar of tabs with the selected page under it. A page is built when it is first selected and
// keeps its state as long as the tab view exists; it appears and disappears with its selection. If
// no page has the selected tag, the first page is shown and the selection stays as it is. Tags are
// values of an enumeration.
//
// The header, if it is not empty, is shown above the bar on every page, as wide as the tab view. It
// may come and go while the pages keep their state.
//
// The accessory stands at the trailing end of the bar, in the space that the tabs leave. Where they
// leave less than 56 points, it has a row of its own above the bar. The Tab key reaches it after
// the page, which follows the bar.
template <class Tag>
View TabView(const Binding<Tag>& selection, std::vector<Tab<Tag>> tabs, View header = {},
             View accessory = {}) {
  std::vector<detail::TabPage> pages;
  pages.reserve(tabs.size());
  for (Tab<Tag>& tab : tabs) {
    pages.push_back({.tag = static_cast<std::int64_t>(tab.tag),
                     .title = std::move(tab.title),
                     .symbol = tab.symbol,
                     .page = std::move(tab.page)});
  }
  return detail::makeTabView(
      std::move(pages), static_cast<std::int64_t>(selection.get()),
      [selection](std::int64_t tag) { selection.set(static_cast<Tag>(tag)); }, std::move(header),
      std::move(accessory));
}

}  // namespace viewkit
