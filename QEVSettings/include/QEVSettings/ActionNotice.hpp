// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

#include <functional>
#include <string>

namespace QEVSettings {

// The one message or question of a settings window about undo and resets. The window shows it in a
// bar above the tabs, and assistive technology announces it. The model announces each change. Main
// thread.
//
//     notice.ask(question, localized("Reset"), [owner = std::weak_ptr(history)] { … });
class ActionNotice final : public foundation::ObservableObject {
public:
  // Texts are in the user's language.
  void show(std::string message);
  // `confirm` is called when the user agrees; the question is gone then. It does not own the
  // history, which owns the notice.
  void ask(std::string question, std::string confirmTitle, std::function<void()> confirm);
  // Takes the message or question away.
  void dismiss();

  bool isEmpty() const { return text_.empty(); }
  bool isQuestion() const { return static_cast<bool>(confirm_); }
  const std::string& text() const { return text_; }
  const std::string& confirmTitle() const { return confirmTitle_; }
  // The user agrees to the question.
  void confirm();
  // Counts the messages, so that the same text a second time is announced again.
  int number() const { return number_; }

private:
  void set(std::string text, std::string confirmTitle, std::function<void()> confirm);

  std::string text_;
  std::string confirmTitle_;
  std::function<void()> confirm_;
  int number_ = 0;
};

}  // namespace QEVSettings
