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

View withMenu(const View& content, const std::shared_ptr<const SettingMenu>& menu,
              const Binding<bool>& isExplained) {
  // The popover stands beside a view over the row, so that the row keeps its place in the tree.
  const auto explanation = [menu] { return explanationView(menu->explanations()); };
  const View anchor = isExplained.get()
                          ? RoundedRectangle()
                                .fill(Color::clear())
                                .popover(isExplained, explanation, {.maxWidth = kPopoverWidth})
                          : View();
  return contextMenu(content.overlay(anchor), [menu, isExplained] {
    return menu->items([isExplained] { isExplained.set(true); });
  });
}

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
    const bool isChanged = state->isChanged();
    const std::string note = isChanged ? localized("Changed from the default") : std::string();
    const View marked = accessibilityNote(row, note).overlay(isChanged ? changedMark() : View(),
                                                             Alignment::leading());
    return withMenu(marked, menu, isExplained.binding());
  }
};

struct RowLabel {
  std::shared_ptr<const SettingMenu> menu;
  View label;
  State<bool> isExplained = false;

  View body() const { return withMenu(label, menu, isExplained.binding()); }
};

// Null in a window without marks.
std::shared_ptr<const SettingMenu> menuFor(std::vector<std::string> keys) {
  const Environment environment = Environment::current();
  auto catalogue = environment.object<SettingsCatalogue>();
  const auto marks = environment.object<RowMarks>();
  const bool areLeftOut = !catalogue || (marks && !marks->areShown);
  if (areLeftOut || keys.empty()) return nullptr;
  return std::make_shared<const SettingMenu>(
      SettingMenu{.keys = std::move(keys),
                  .store = environment.defaultStore,
                  .catalogue = std::move(catalogue),
                  .writer = environment.object<SettingWriter>()});
}

}  // namespace

View markedRow(std::vector<std::string> keys, const View& row) {
  auto menu = menuFor(std::move(keys));
  return menu ? View(MarkedRow(std::move(menu), row)) : row;
}

View rowLabel(std::vector<std::string> keys, const View& label) {
  auto menu = menuFor(std::move(keys));
  return menu ? View(RowLabel{.menu = std::move(menu), .label = label}) : label;
}

}  // namespace QEVSettings
