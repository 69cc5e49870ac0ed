// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <typeinfo>
#include <utility>

namespace viewkit {

// What a view's member keeps between one description of the view and the next. See ViewProperty.
struct Slot {
  virtual ~Slot() = default;
};

// The slot of the member at this address, made on the first call. Null if no body is running, or
// the body of a view that the member does not belong to.
std::shared_ptr<Slot> slotInRunningBody(const void* member,
                                        const std::function<std::shared_ptr<Slot>()>& make);

// Whether the member belongs to the view whose body is running.
bool belongsToRunningBody(const void* member);

// Reports that a property was used outside of its view. Aborts in a debug build, returns in others.
void reportUnlinkedProperty(const std::type_info& property);

// A member of a view whose contents live as long as the view's identity; the view value itself is
// made anew by every body. It finds its contents while the view's body runs, by its offset in the
// view, so there is nothing to register. A copy made while the body runs keeps the same contents:
// handlers capture one with `[self = *this]`.
//
//     struct ClickCount : ViewProperty<StateSlot<int>> {
//       void click() const { slot().write(slot().read() + 1); }
//       std::shared_ptr<StateSlot<int>> makeSlot() const override {
//         return std::make_shared<StateSlot<int>>(0);
//       }
//     };
template <class SlotType>
class ViewProperty {
public:
  ViewProperty(const ViewProperty& other) : slot_(other.linked()) {}
  // A view that was moved from keeps its contents.
  // NOLINTNEXTLINE(performance-move-constructor-init)
  ViewProperty(ViewProperty&& other) noexcept : slot_(other.slot_) {}
  ViewProperty& operator=(const ViewProperty&) = delete;
  ViewProperty& operator=(ViewProperty&&) = delete;
  virtual ~ViewProperty() = default;

  // The contents are no part of the view's value.
  friend bool operator==(const ViewProperty&, const ViewProperty&) { return true; }

protected:
  ViewProperty() = default;

  virtual std::shared_ptr<SlotType> makeSlot() const = 0;

  SlotType& slot() const {
    if (!linked()) {
      reportUnlinkedProperty(typeid(*this));
      slot_ = makeSlot();
    }
    return *slot_;
  }

  std::shared_ptr<SlotType> sharedSlot() const {
    slot();
    return slot_;
  }

private:
  const std::shared_ptr<SlotType>& linked() const {
    if (auto slot = slotInRunningBody(this, [this] { return makeSlot(); })) {
      slot_ = std::static_pointer_cast<SlotType>(std::move(slot));
    }
    return slot_;
  }

  mutable std::shared_ptr<SlotType> slot_;
};

}  // namespace viewkit
