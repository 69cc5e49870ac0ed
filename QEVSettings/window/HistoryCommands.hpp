// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/SettingsReset.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <string_view>

namespace QEVSettings {

// The bar with the message or question of the history.
struct ActionNoticeBar {
  viewkit::ObservedObject<ActionNotice> notice;

  viewkit::View body() const;

  friend bool operator==(const ActionNoticeBar&, const ActionNoticeBar&) = default;
};

// The content of a settings window with undo, redo and the resets, as keys and as a context menu.
// It reads the history in a body of its own, so that an action does not rebuild the content.
//
//     Ctrl+Z        undoes the last action, outside of a text that is being edited
//     Ctrl+Shift+Z  redoes it
//     Escape        answers a question with no, and takes a message away
struct HistoryCommands {
  viewkit::View content;
  viewkit::ObservedObject<ActionHistory> history;
  // Null for a window without resets.
  std::shared_ptr<SettingsReset> reset;
  // Brings the setting with this key into sight.
  std::function<void(std::string_view key)> show;

  viewkit::View body() const;
};

}  // namespace QEVSettings
