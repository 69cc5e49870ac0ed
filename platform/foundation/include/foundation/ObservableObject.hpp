// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace foundation {

using QEVSettings::Subscription;

// Tells any number of listeners that something happens. A listener may subscribe, unsubscribe and
// destroy the announcer while it is being told; one that is added meanwhile is told from the next
// time on. Main thread.
//
//     Announcer changed;
//     const Subscription token = changed.subscribe([] { readAgain(); });
//     changed.announce();
class Announcer {
public:
  using Listener = std::function<void()>;

  [[nodiscard]] Subscription subscribe(Listener listener);
  void announce() const;

private:
  struct Listeners {
    std::uint64_t next = 0;
    std::map<std::uint64_t, std::shared_ptr<const Listener>> byOrder;
  };
  std::shared_ptr<Listeners> listeners_ = std::make_shared<Listeners>();
};

// A model object that views can watch: it announces each change of a published value before the
// value changes. Held by shared pointer; neither copied nor moved. See Published.
class ObservableObject {
public:
  ObservableObject() = default;
  ObservableObject(const ObservableObject&) = delete;
  ObservableObject& operator=(const ObservableObject&) = delete;
  virtual ~ObservableObject() = default;

  const Announcer& objectWillChange() const { return objectWillChange_; }
  Announcer& objectWillChange() { return objectWillChange_; }

private:
  Announcer objectWillChange_;
};

// A value of an observable object: every assignment announces the coming change first, as the
// owner's `objectWillChange`.
//
//     class Player : public ObservableObject {
//     public:
//       Published<bool> isPlaying{*this, false};
//     };
template <class T>
class Published {
public:
  Published(ObservableObject& owner, T value) : owner_(owner), value_(std::move(value)) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;

  const T& get() const { return value_; }
  operator const T&() const { return value_; }

  void set(T value) {
    owner_.objectWillChange().announce();
    value_ = std::move(value);
  }
  Published& operator=(T value) {
    set(std::move(value));
    return *this;
  }

private:
  ObservableObject& owner_;
  T value_;
};

}  // namespace foundation
