// SPDX-License-Identifier: MIT
#include "window/HistoryCommands.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/ContextMenu.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/KeyPress.hpp"
#include "viewkit/Stacks.hpp"
#include "window/NoticeBar.hpp"
#include "window/isEditingText.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using appkit::Event;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

using History = std::shared_ptr<ActionHistory>;

// Whether the key was one of the history.
bool handleKey(const Event& press, const History& history) {
  if (isEditingText()) return false;
  if (press.keyCode == Event::kEscape && press.modifiers == Event::none) {
    const bool hasNotice = !history->notice()->isEmpty();
    history->notice()->dismiss();
    return hasNotice;
  }
  if (press.keyCode != Event::kZ) return false;
  if (press.modifiers == Event::control) {
    history->undo();
    return true;
  }
  if (press.modifiers == (Event::control | Event::shift)) {
    history->redo();
    return true;
  }
  return false;
}

std::vector<MenuItem> menuItems(const History& history,
                                const std::shared_ptr<SettingsReset>& reset) {
  std::vector<MenuItem> items;
  if (history->canUndo())
    items.push_back({.title = history->undoTitle(), .action = [history] { history->undo(); }});
  if (history->canRedo())
    items.push_back({.title = history->redoTitle(), .action = [history] { history->redo(); }});
  if (!reset) return items;
  items.push_back(
      {.title = localized("Reset This Page…"), .action = [reset] { reset->askToResetPage(); }});
  items.push_back(
      {.title = localized("Reset All Settings…"), .action = [reset] { reset->askToResetAll(); }});
  return items;
}

}  // namespace

View ActionNoticeBar::body() const {
  const std::shared_ptr<ActionNotice>& model = notice.get();
  const auto dismiss = [model] { model->dismiss(); };
  const std::string id = std::to_string(model->number());
  if (!model->isQuestion()) {
    return NoticeBar{.symbol = "info.circle.fill",
                     .color = Color::accent(),
                     .text = model->text(),
                     .id = id,
                     .buttons = Button(localized("Dismiss"), dismiss)};
  }
  return NoticeBar{
      .symbol = "arrow.counterclockwise",
      .color = Color::accent(),
      .text = model->text(),
      .id = id,
      .buttons = HStack({.spacing = points(Spacing::s5)},
                        {
                            Button(model->confirmTitle(), [model] { model->confirm(); }),
                            Button(localized("Cancel"), dismiss),
                        })};
}

View HistoryCommands::body() const {
  const History& model = history.get();
  const View commands =
      contextMenu(onKeyPress(content, KeyScope::window,
                             [model](const Event& press) { return handleKey(press, model); }),
                  [model, reset = reset] { return menuItems(model, reset); });
  return commands.onChange<ActionHistory::Replay>(
      model->lastReplay(), [show = show](const ActionHistory::Replay& replay) {
        if (show) show(replay.key);
      });
}

}  // namespace QEVSettings
