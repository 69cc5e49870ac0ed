// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"
#include "viewkit/Dependents.hpp"
#include "viewkit/ViewProperty.hpp"

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

// A model together with the bodies that read it. See ObservedObject.
template <std::derived_from<foundation::ObservableObject> T>
struct ObjectSlot : Slot {
  explicit ObjectSlot(std::shared_ptr<T> model) { observe(std::move(model)); }

  void observe(std::shared_ptr<T> model) {
    if (model == object) return;
    object = std::move(model);
    subscription = object ? object->objectWillChange().subscribe([this] { dependents.markAll(); })
                          : foundation::Subscription();
  }

  std::shared_ptr<T> object;
  Dependents dependents;
  foundation::Subscription subscription;
};

// A model that belongs to someone else. Bodies that read it run again when it announces a change.
//
//     struct PlayerView {
//       ObservedObject<Player> player;
//       View body() const { return Text(player->isPlaying ? "Playing" : "Paused"); }
//     };
template <class T>
class ObservedObject : public ViewProperty<ObjectSlot<T>> {
public:
  ObservedObject(std::shared_ptr<T> object) : object_(std::move(object)) {}

  const std::shared_ptr<T>& get() const {
    auto& slot = this->slot();
    // A handler of an earlier description still works on the earlier object; only the body decides
    // which one is watched.
    if (belongsToRunningBody(this)) slot.observe(object_);
    slot.dependents.recordRead();
    return object_;
  }
  T* operator->() const { return get().get(); }
  T& operator*() const { return *get(); }

  friend bool operator==(const ObservedObject& a, const ObservedObject& b) {
    return a.object_ == b.object_;
  }

private:
  std::shared_ptr<ObjectSlot<T>> makeSlot() const override {
    return std::make_shared<ObjectSlot<T>>(object_);
  }

  std::shared_ptr<T> object_;
};

// A model that the view owns: made when the view first appears, kept until it is gone. Bodies that
// read it run again when it announces a change.
//
//     struct PlayerView {
//       StateObject<Player> player{[] { return std::make_shared<Player>(); }};
//       View body() const { return Text(player->isPlaying ? "Playing" : "Paused"); }
//     };
template <class T>
class StateObject : public ViewProperty<ObjectSlot<T>> {
public:
  StateObject(std::function<std::shared_ptr<T>()> make) : make_(std::move(make)) {}

  const std::shared_ptr<T>& get() const {
    auto& slot = this->slot();
    slot.dependents.recordRead();
    return slot.object;
  }
  T* operator->() const { return get().get(); }
  T& operator*() const { return *get(); }

private:
  std::shared_ptr<ObjectSlot<T>> makeSlot() const override {
    return std::make_shared<ObjectSlot<T>>(make_());
  }

  std::function<std::shared_ptr<T>()> make_;
};

}  // namespace viewkit
