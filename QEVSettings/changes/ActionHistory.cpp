// SPDX-License-Identifier: MIT
#include "QEVSettings/ActionHistory.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVSettings/isSetting.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/settingName.hpp"
#include "changes/ActionStep.hpp"
#include "changes/isOfAppearance.hpp"
#include "changes/replayStep.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/ScopedFlag.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Gesture.hpp"

#include <algorithm>
#include <utility>

namespace QEVSettings {

using QEVCommonTools::formatted;

namespace {

// The names of more settings than this are not listed in a title.
constexpr std::size_t kNamesInTitle = 2;

}  // namespace

ActionHistory::ActionHistory(RecordingPreferences& store, std::shared_ptr<SettingWriter> writer,
                             std::shared_ptr<SettingsCatalogue> catalogue, Limits limits)
    : writer_(std::move(writer)),
      catalogue_(std::move(catalogue)),
      limits_(limits),
      recording_(store.record([this](const SettingChange& change) { record(change); })) {}

ActionHistory::~ActionHistory() = default;

std::string ActionHistory::undoTitle() const {
  if (undo_.empty()) return localized("Undo");
  return formatted(localized("Undo “%@”"), {nameOf(undo_.back())});
}

std::string ActionHistory::redoTitle() const {
  if (redo_.empty()) return localized("Redo");
  return formatted(localized("Redo “%@”"), {nameOf(redo_.back())});
}

void ActionHistory::undo() { replay(ReplayDirection::back); }
void ActionHistory::redo() { replay(ReplayDirection::forward); }

void ActionHistory::perform(std::string name, const std::function<void()>& action) {
  endTurn();
  action();
  // The turn is open if the action has written anything.
  if (*isTurnOpen_) {
    objectWillChange().announce();
    undo_.back().name = std::move(name);
  }
  endTurn();
}

void ActionHistory::record(const SettingChange& change) {
  // The selection moves with what is shown, and would move under an undo that brings a setting into
  // sight.
  if (isReplaying_ || !isSetting(change.key)) return;
  objectWillChange().announce();
  notice_->dismiss();
  redo_.clear();
  const bool isSameTurn = beginTurn();
  if (!addToLast(change, isSameTurn)) {
    undo_.push_back({.changes = {change}, .gesture = viewkit::runningGesture()});
  } else if (undo_.back().changes.empty()) {
    undo_.pop_back();
    endTurn();
  }
  trim();
}

bool ActionHistory::addToLast(const SettingChange& change, bool isSameTurn) {
  const std::uint64_t gesture = viewkit::runningGesture();
  if (undo_.empty() || undo_.back().gesture != gesture) return false;
  ActionStep& last = undo_.back();
  const bool continues = gesture != 0 && last.isOf(change.key);
  return (isSameTurn || continues) && last.add(change);
}

// Returns whether the turn had begun.
bool ActionHistory::beginTurn() {
  if (std::exchange(*isTurnOpen_, true)) return true;
  foundation::MainQueue::mainQueue().async([turn = std::weak_ptr(isTurnOpen_)] {
    if (const auto isOpen = turn.lock()) *isOpen = false;
  });
  return false;
}

// The queued end of the former turn does not reach the flag of a later one.
void ActionHistory::endTurn() { isTurnOpen_ = std::make_shared<bool>(false); }

void ActionHistory::trim() {
  std::size_t size = 0;
  std::size_t kept = 0;
  for (auto step = undo_.rbegin(); step != undo_.rend() && kept < limits_.actions; ++step) {
    size += step->size();
    if (kept > 0 && size > limits_.bytes) break;
    ++kept;
  }
  undo_.erase(undo_.begin(), undo_.end() - static_cast<std::ptrdiff_t>(kept));
}

void ActionHistory::replay(ReplayDirection direction) {
  const bool isBack = direction == ReplayDirection::back;
  Steps& from = isBack ? undo_ : redo_;
  if (from.empty()) return;
  endTurn();
  objectWillChange().announce();
  ActionStep step = std::move(from.back());
  from.pop_back();
  const ReplayedStep replayed = [&] {
    const foundation::ScopedFlag replaying(isReplaying_, true);
    return replayStep(step, direction, *writer_);
  }();
  tell(replayed, direction);
  lastReplay_ = {.key = step.changes.front().key, .number = lastReplay_.number + 1};
  if (replayed.done.empty()) return;
  step.changes = replayed.done;
  // Whatever the user does next is another action.
  step.gesture = 0;
  (isBack ? redo_ : undo_).push_back(std::move(step));
}

void ActionHistory::tell(const ReplayedStep& replayed, ReplayDirection direction) {
  const bool isBack = direction == ReplayDirection::back;
  std::string message;
  const auto add = [&](const std::string& line) {
    if (!message.empty()) message += '\n';
    message += line;
  };
  for (const std::string& key : replayed.changedElsewhere) {
    add(formatted(
        localized(isBack ? "“%@” was not undone, because it has been changed elsewhere since."
                         : "“%@” was not redone, because it has been changed elsewhere since."),
        {nameOf(key)}));
  }
  for (const SettingWriter::Refusal& each : replayed.refused) {
    add(formatted(localized(isBack ? "“%@” was not undone: %@" : "“%@” was not redone: %@"),
                  {nameOf(each.key), each.message}));
  }
  if (message.empty()) {
    notice_->dismiss();
  } else {
    notice_->show(std::move(message));
  }
}

std::string ActionHistory::nameOf(std::string_view key) const {
  if (isOfAppearance(key)) key = kAppearanceName.name;
  const PreferenceDescriptor* const known = catalogue_ ? catalogue_->current().find(key) : nullptr;
  return known ? settingName(*known) : std::string(key);
}

std::string ActionHistory::nameOf(const ActionStep& step) const {
  if (!step.name.empty()) return step.name;
  const auto settings = bySetting(step.changes);
  std::string names;
  for (std::size_t i = 0; i < std::min(settings.size(), kNamesInTitle); ++i) {
    if (i > 0) names += ", ";
    names += nameOf(settings[i].front().key);
  }
  return settings.size() > kNamesInTitle ? names + " …" : names;
}

}  // namespace QEVSettings
