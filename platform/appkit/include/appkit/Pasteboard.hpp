// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace appkit {

// The clipboard of the system. Without a back end it is the process's own. Main thread.
//
//     Pasteboard::general().setString("com_velloquin_zorvantine_prefTimezone");
class Pasteboard {
public:
  static Pasteboard& general();

  // Replaces what is on the clipboard by a text.
  void setString(std::string text);
  // The text that this process put there last.
  const std::string& string() const { return string_; }

  // Called with each text that is put on the clipboard. An empty function removes it.
  void setBackEnd(std::function<void(const std::string& text)> write) { write_ = std::move(write); }

private:
  std::string string_;
  std::function<void(const std::string& text)> write_;
};

}  // namespace appkit
