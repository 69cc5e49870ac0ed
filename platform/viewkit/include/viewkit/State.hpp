// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/Dependents.hpp"
#include "viewkit/ViewProperty.hpp"

#include <concepts>
#include <memory>
#include <utility>

namespace viewkit {

// The value of a State, which lives as long as the identity of its view. See State.
template <class T>
struct StateSlot : Slot {
  explicit StateSlot(T initial) : value(std::move(initial)) {}

  const T& read() {
    dependents.recordRead();
    return value;
  }

  void write(T next) {
    if constexpr (std::equality_comparable<T>) {
      if (next == value) return;
    }
    value = std::move(next);
    dependents.markAll();
  }

  T value;
  Dependents dependents;
};

// A value that a view keeps for itself as long as its identity lasts. The initial value is used
// once, when the view is first shown.
//
//     struct Row {
//       State<bool> hovering = false;
//       View body() const {
//         return Text("…").foreground(hovering ? Color::accent() : Color::primary())
//             .onHover([self = *this](bool inside) { self.hovering.set(inside); });
//       }
//     };
template <class T>
class State : public ViewProperty<StateSlot<T>> {
public:
  State(T initial) : initial_(std::move(initial)) {}
  State()
    requires std::default_initializable<T>
      : initial_{} {}

  const T& get() const { return this->slot().read(); }
  operator const T&() const { return get(); }

  // Marks the bodies that read the value, unless it is equal.
  void set(T value) const { this->slot().write(std::move(value)); }

  Binding<T> binding() const {
    const auto slot = this->sharedSlot();
    return {[slot] { return slot->read(); }, [slot](const T& value) { slot->write(value); }};
  }

private:
  std::shared_ptr<StateSlot<T>> makeSlot() const override {
    return std::make_shared<StateSlot<T>>(initial_);
  }

  T initial_;
};

}  // namespace viewkit
