// SPDX-License-Identifier: MIT
#include "QEVSettings/ActionNotice.hpp"

#include <utility>

namespace QEVSettings {

void ActionNotice::show(std::string message) { set(std::move(message), {}, nullptr); }

void ActionNotice::ask(std::string question, std::string confirmTitle,
                       std::function<void()> confirm) {
  set(std::move(question), std::move(confirmTitle), std::move(confirm));
}

void ActionNotice::dismiss() {
  if (!isEmpty()) set({}, {}, nullptr);
}

void ActionNotice::confirm() {
  const auto confirm = std::exchange(confirm_, nullptr);
  dismiss();
  if (confirm) confirm();
}

void ActionNotice::set(std::string text, std::string confirmTitle, std::function<void()> confirm) {
  objectWillChange().announce();
  text_ = std::move(text);
  confirmTitle_ = std::move(confirmTitle);
  confirm_ = std::move(confirm);
  ++number_;
}

}  // namespace QEVSettings
