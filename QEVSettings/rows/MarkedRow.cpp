// SPDX-License-Identifier: MIT
#include "rows/MarkedRow.hpp"

#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/ChangedMark.hpp"
#include "rows/RowMarks.hpp"
#include "rows/SettingExplanation.hpp"
#include "rows/SettingMenu.hpp"
#include "rows/SettingState.hpp"
#include "viewkit/AccessibilityNote.hpp"
#include "viewkit/ContextMenu.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/State.hpp"

#include <memory>
#include <string>
#include <utility>

namespace QEVSettings {

using namespace viewkit;

namespace {

// As wide as the longest key needs.
constexpr double kPopoverWidth = 480;

struct MarkedRow {
  MarkedRow(std::shared_ptr<const SettingMenu> menu, View row)
      : menu(std::move(menu)), row(std::move(row)), state([menu = this->menu] {
          return std::make_shared<SettingState>(menu->store, menu->catalogue);
        }) {}

  std::shared_ptr<const SettingMenu> menu;
  View row;
  StateObject<SettingState> state;
  State<bool> isExplained = false;

  View body() const {
    state->follow(menu->keys);
    // The popover stands beside a view over the row, so that the row keeps its place in the tree.
    const View anchor =
        isExplained ? RoundedRectangle()
                          .fill(Color::clear())
                          .popover(isExplained.binding(),
                                   [menu = menu] { return explanationView(menu->explanations()); },
                                   {.maxWidth = kPopoverWidth})
                    : View();
    const bool isChanged = state->isChanged();
    const std::string note = isChanged ? localized("Changed from the default") : std::string();
    const View marked = accessibilityNote(row, note)
                            .overlay(isChanged ? changedMark() : View(), Alignment::leading())
                            .overlay(anchor);
    return contextMenu(marked, [menu = menu, isExplained = isExplained.binding()] {
      return menu->items([isExplained] { isExplained.set(true); });
    });
  }
};

}  // namespace

View markedRow(std::vector<std::string> keys, const View& row) {
  const Environment environment = Environment::current();
  auto catalogue = environment.object<SettingsCatalogue>();
  const auto marks = environment.object<RowMarks>();
  const bool areLeftOut = !catalogue || (marks && !marks->areShown);
  if (areLeftOut || keys.empty() || row.isEmpty()) return row;
  return MarkedRow(std::make_shared<const SettingMenu>(
                       SettingMenu{.keys = std::move(keys),
                                   .store = environment.defaultStore,
                                   .catalogue = std::move(catalogue),
                                   .writer = environment.object<SettingWriter>()}),
                   row);
}

}  // namespace QEVSettings
