// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/ActionNotice.hpp"
#include "QEVSettings/RecordingPreferences.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "foundation/ObservableObject.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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
//     const auto history = std::make_shared<ActionHistory>(recording, writer, catalogue);
//     const viewkit::Environment environment{
//         .defaultStore = recording,
//         .objects = viewkit::EnvironmentObjects().with(history)};
//
// QEVSettingsView finds the history in its environment; without one it offers neither undo nor
// resets. A host can show the same commands in a menu. The model announces each change. Main
// thread.
class ActionHistory final : public foundation::ObservableObject {
public:
  // How much is kept, undone actions included. The oldest actions go first; the newest one is kept
  // whatever its size.
  struct Limits {
    std::size_t actions = 100;
    // Of all values, as if none was shared with the store.
    std::size_t bytes = std::size_t{4} << 20;
  };

  // The store outlives the history. The writer writes to this store. The catalogue has the names of
  // the settings; it may be null, and an unknown setting has its key for a name.
  ActionHistory(RecordingPreferences& store, std::shared_ptr<SettingWriter> writer,
                std::shared_ptr<SettingsCatalogue> catalogue, Limits limits);
  ActionHistory(RecordingPreferences& store, std::shared_ptr<SettingWriter> writer,
                std::shared_ptr<SettingsCatalogue> catalogue)
      : ActionHistory(store, std::move(writer), std::move(catalogue), Limits()) {}
  ~ActionHistory() override;

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  // The title of the command, in the user's language: "Undo “Dark”".
  std::string undoTitle() const;
  std::string redoTitle() const;

  // Takes the last action back, or carries the last action that was taken back out again, through
  // the SettingWriter. A setting that somebody else has changed since keeps its value, and so does
  // one whose write is refused; `notice` then says so. Does nothing when there is no such action.
  void undo();
  void redo();

  // Runs an action whose writes are one step with this name, in the user's language.
  void perform(std::string name, const std::function<void()>& action);

  // What the window tells its user. A message goes with the next action.
  const std::shared_ptr<ActionNotice>& notice() const { return notice_; }

  // The last undo or redo, for the window to bring the place that changed into sight. Differs from
  // the one before in its number.
  struct Replay {
    std::string key = {};
    std::uint64_t number = 0;

    friend bool operator==(const Replay&, const Replay&) = default;
  };
  const Replay& lastReplay() const { return lastReplay_; }

  // The name of the setting in the user's language.
  std::string nameOf(std::string_view key) const;

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
  std::string nameOf(const ActionStep& step) const;

  std::shared_ptr<SettingWriter> writer_;
  std::shared_ptr<SettingsCatalogue> catalogue_;
  Limits limits_;
  Steps undo_;
  Steps redo_;
  std::shared_ptr<ActionNotice> notice_ = std::make_shared<ActionNotice>();
  Replay lastReplay_;
  bool isReplaying_ = false;
  // Whether the last step takes the writes of the running turn. Shared with the main queue.
  std::shared_ptr<bool> isTurnOpen_ = std::make_shared<bool>(false);
  Subscription recording_;
};

}  // namespace QEVSettings
