// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/RecordingPreferences.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "foundation/ObservableObject.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {

struct ActionStep;
struct ReplayedStep;
enum class ReplayDirection : std::uint8_t;

// What the user of a settings window did, to be undone and redone one action at a time.
//
// An action is all that is written in one turn of the main queue, or during one gesture of a
// control (viewkit::runningGesture). Writes count when they go through the recording store, which
// is the store of the window's environment and of the models that its pages show. What other
// windows and processes write is no action.
//
//     const auto history = std::make_shared<ActionHistory>(
//         recording, writer, ActionHistory::Options{.nameOf = titleOfSetting});
//     const viewkit::Environment environment{
//         .defaultStore = recording,
//         .objects = viewkit::EnvironmentObjects().with(history)};
//
// QEVSettingsView finds the history in its environment; without one it offers neither undo nor
// resets. A host can show the same commands in a menu. The model announces each change. Main
// thread.
class ActionHistory final : public foundation::ObservableObject {
public:
  // The most steps that can be undone. The oldest go first.
  static constexpr std::size_t kLongest = 100;
  // The most bytes that the values of all steps take; the oldest steps go first. The newest step is
  // kept whatever its size.
  static constexpr std::size_t kLargest = std::size_t{4} << 20;

  struct Options {
    // The name of a setting in the user's language. Empty for an unknown key, which then has its
    // key for a name.
    std::function<std::string(std::string_view key)> nameOf = {};
  };

  // The store outlives the history. The writer writes to this store.
  ActionHistory(RecordingPreferences& store, std::shared_ptr<SettingWriter> writer,
                Options options);
  ~ActionHistory() override;

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  // The title of the command, in the user's language: "Undo “Dark”".
  std::string undoTitle() const;
  std::string redoTitle() const;

  // Takes the last action back, or carries the last action that was taken back out again, through
  // the SettingWriter. A setting that somebody else has changed since keeps its value, and so does
  // one whose write is refused; `message` then says so. Does nothing when there is no such action.
  void undo();
  void redo();

  // Runs an action whose writes are one step with this name, in the user's language.
  void perform(std::string name, const std::function<void()>& action);

  // What the last undo or redo left as it is, in the user's language; empty when that was nothing.
  // Goes with the next action and when it is dismissed.
  const std::string& message() const { return message_; }
  void dismissMessage();

  // The last undo or redo, for the window to bring the place that changed into sight. Differs from
  // the one before in its number.
  struct Replay {
    std::string key = {};
    std::uint64_t number = 0;

    friend bool operator==(const Replay&, const Replay&) = default;
  };
  const Replay& lastReplay() const { return lastReplay_; }

  SettingWriter& writer() const { return *writer_; }

private:
  using Steps = std::vector<ActionStep>;

  void record(const SettingChange& change);
  bool addToLast(const SettingChange& change, bool isSameTurn);
  bool beginTurn();
  void endTurn();
  void trim();
  void replay(ReplayDirection direction);
  void tell(const ReplayedStep& replayed, ReplayDirection direction);
  std::string nameOf(std::string_view key) const;
  std::string nameOf(const ActionStep& step) const;

  std::shared_ptr<SettingWriter> writer_;
  Options options_;
  Steps undo_;
  Steps redo_;
  std::string message_;
  Replay lastReplay_;
  bool isReplaying_ = false;
  // Whether the last step takes the writes of the running turn. Shared with the main queue.
  std::shared_ptr<bool> isTurnOpen_ = std::make_shared<bool>(false);
  Subscription recording_;
};

}  // namespace QEVSettings
