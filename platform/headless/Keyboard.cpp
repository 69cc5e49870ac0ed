// SPDX-License-Identifier: MIT
#include "Keyboard.hpp"

#include "ControlUse.hpp"
#include "Utf8.hpp"
#include "headless/Window.hpp"
#include "viewkit/KeyRouter.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace headless {

using appkit::Event;
using viewkit::PresentationNode;
using viewkit::TextFieldControl;

namespace {

constexpr std::string_view kEnter = "\r";
constexpr std::string_view kLineFeed = "\n";
constexpr std::string_view kTab = "\t";
constexpr std::string_view kSpace = " ";
constexpr std::string_view kDeleteBackward = "\x7F";

bool isShortcut(const Event& event) {
  return (event.modifiers & (Event::control | Event::option | Event::command)) != 0;
}

bool isControlCharacter(std::string_view text) {
  return text.empty() || static_cast<unsigned char>(text.front()) < 0x20 || text == kDeleteBackward;
}

}  // namespace

const PresentationNode* Keyboard::focused() const {
  return id_ != 0 ? window_.host().node(id_) : nullptr;
}

const TextFieldControl* Keyboard::field() const { return controlOf<TextFieldControl>(focused()); }

bool Keyboard::isUsable(const PresentationNode* node) const {
  return node && node->control() && viewkit::takesKeyboard(*node->control()) &&
         node->accessibility.enabled;
}

void Keyboard::moveTo(viewkit::NodeId id) {
  if (id != id_) resign();
  window_.settle();
  const PresentationNode* node = window_.host().node(id);
  if (id == id_ || !isUsable(node)) return;
  id_ = id;
  isAllSelected_ = false;
  if (const TextFieldControl* text = field()) {
    responder_ = std::make_unique<appkit::Text>();
    caret_ = characters(text->text).size();
  } else {
    responder_ = std::make_unique<appkit::Responder>();
  }
}

void Keyboard::move(int step) {
  std::vector<viewkit::NodeId> ids;
  visitTree(window_.host().presentation(), [&](const PresentationNode& node) {
    if (isUsable(&node)) ids.push_back(node.id);
  });
  if (ids.empty()) return;
  const auto count = static_cast<std::ptrdiff_t>(ids.size());
  const auto current = std::find(ids.begin(), ids.end(), id_);
  // Without a focus the next control is the first, and the previous one the last.
  const std::ptrdiff_t start =
      current != ids.end() ? current - ids.begin() : (step > 0 ? -1 : count);
  moveTo(ids[static_cast<std::size_t>((start + step + count) % count)]);
  selectAll();
}

void Keyboard::resign() {
  if (id_ == 0) return;
  const auto responder = std::move(responder_);
  const auto endEditing = field() ? field()->endEditing : nullptr;
  id_ = 0;
  if (endEditing) endEditing();
}

bool Keyboard::resignIfUnusable() {
  if (id_ == 0 || isUsable(focused())) return false;
  resign();
  return true;
}

void Keyboard::handle(const Event& event) {
  if (event.characters == kTab) {
    move((event.modifiers & Event::shift) != 0 ? -1 : 1);
    return;
  }
  const PresentationNode* node = focused();
  if (!isUsable(node)) return;
  if (field()) {
    handleInField(event);
  } else if (const auto* tabs = controlOf<viewkit::TabBarControl>(node)) {
    const int step = event.keyCode == Event::kRightArrow  ? 1
                     : event.keyCode == Event::kLeftArrow ? -1
                                                          : 0;
    const int next = tabs->selected + step;
    if (step != 0 && next >= 0 && next < static_cast<int>(tabs->items.size()))
      std::function(tabs->select)(next);
  } else if (const auto* scroll = controlOf<viewkit::ScrollControl>(node)) {
    const auto item = viewkit::itemSelectedBy(*scroll->list, event);
    if (item) std::function(scroll->list->select)(*item);
  } else if (event.characters == kSpace || event.characters == kEnter) {
    operate(*node->control());
  }
}

void Keyboard::handleInField(const Event& event) {
  const std::size_t length = characters(field()->text).size();
  caret_ = std::min(caret_, length);
  if (event.keyCode == Event::kLeftArrow || event.keyCode == Event::kRightArrow) {
    const bool isBack = event.keyCode == Event::kLeftArrow;
    if (isAllSelected_) {
      caret_ = isBack ? 0 : length;
    } else if (isBack) {
      caret_ -= caret_ > 0 ? 1 : 0;
    } else {
      caret_ = std::min(caret_ + 1, length);
    }
    isAllSelected_ = false;
  } else if (event.characters == kEnter || event.characters == kLineFeed) {
    const auto commit = field()->commit;
    if (commit) commit();
  } else if (event.characters == kDeleteBackward) {
    if (isAllSelected_) {
      replace(0, length, "");
    } else if (caret_ > 0) {
      replace(caret_ - 1, caret_, "");
    }
  } else if (event.keyCode == Event::kOtherKey && !isShortcut(event) &&
             !isControlCharacter(event.characters)) {
    replace(isAllSelected_ ? 0 : caret_, isAllSelected_ ? length : caret_, event.characters);
  }
}

void Keyboard::replace(std::size_t from, std::size_t to, std::string_view text) {
  const TextFieldControl edited = *field();
  const auto before = characters(edited.text);
  std::string after;
  for (std::size_t i = 0; i < from; ++i) after += before[i].bytes;
  after += text;
  for (std::size_t i = to; i < before.size(); ++i) after += before[i].bytes;

  caret_ = from + characters(text).size();
  isAllSelected_ = false;
  if (after == edited.text) return;
  if (edited.change) edited.change(after);
  window_.settle();
  // The view may have replaced the text.
  const TextFieldControl* shown = field();
  if (shown && shown->text != after) caret_ = characters(shown->text).size();
}

void Keyboard::selectAll() { isAllSelected_ = field() != nullptr; }

}  // namespace headless
