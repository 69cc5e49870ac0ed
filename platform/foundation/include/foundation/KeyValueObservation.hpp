// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace foundation {

// What an observer of a property wants to be told. See Observable.
enum class ObservingOptions : std::uint8_t {
  newValue = 1,  // the value after each assignment
  initial = 4,   // the value at the moment of subscribing, before `observe` returns
};
constexpr ObservingOptions operator|(ObservingOptions a, ObservingOptions b) {
  return static_cast<ObservingOptions>(static_cast<std::uint8_t>(a) | static_cast<std::uint8_t>(b));
}
constexpr bool contains(ObservingOptions options, ObservingOptions option) {
  return (static_cast<std::uint8_t>(options) & static_cast<std::uint8_t>(option)) != 0;
}

// A property whose assignments can be observed from outside its owner, after the fact.
//
//     Observable<bool> canCheck{false};
//     Subscription token = canCheck.observe(ObservingOptions::initial | ObservingOptions::newValue,
//                                           [](bool can) { show(can); });
//
// Every assignment is told, whether it changes the value or not. An observer may assign, subscribe
// and unsubscribe while it is told. Main thread; neither copied nor moved.
template <class T>
class Observable {
public:
  using Observer = std::function<void(const T& value)>;

  explicit Observable(T value) : value_(std::make_shared<T>(std::move(value))) {}
  Observable(const Observable&) = delete;
  Observable& operator=(const Observable&) = delete;
  ~Observable() = default;

  const T& get() const { return *value_; }

  void set(T value) {
    *value_ = std::move(value);
    didChange_.announce();
  }

  // The subscription holds no part of the property: either may go first.
  [[nodiscard]] Subscription observe(ObservingOptions options, Observer observer) {
    if (contains(options, ObservingOptions::initial)) observer(T(*value_));
    if (!contains(options, ObservingOptions::newValue)) return {};
    return didChange_.subscribe(
        [value = std::weak_ptr<const T>(value_), observer = std::move(observer)] {
          if (const auto alive = value.lock()) observer(T(*alive));
        });
  }

private:
  std::shared_ptr<T> value_;  // outlived by whoever is told last when an observer ends the property
  Announcer didChange_;
};

}  // namespace foundation
