#pragma once

#include <functional>
#include <memory>
#include <typeinfo>
#include <utility>

namespace viewkit {

// What a view's member keeps between one description of the view and the next.
struct Slot {
  virtual ~Slot() = default;
};

// The slot of the member at this address, made when it is first asked for; nothing when the body
// that is running, if any, is not of the view that the member belongs to.
std::shared_ptr<Slot> slotInRunningBody(const void* member,
                                        const std::function<std::shared_ptr<Slot>()>& make);

// Whether the member is of the view whose body is running.
bool belongsToRunningBody(const void* member);

// Stops a debug build: a property was used that belongs to no view on the screen. Returns in
// others.
void reportUnlinkedProperty(const std::type_info& property);

// A member of a view whose contents live with the view's place on the screen, not with the view
// value, which is made anew all the time. It finds its contents when the view's body runs, by where
// it lies in the view, so there is nothing to register and nothing to forget. A copy made while the
// body runs stays tied to the same contents: that is what handlers take along with `[self =
// *this]`.
template <class SlotType>
class ViewProperty {
public:
  ViewProperty(const ViewProperty& other) : slot_(other.linked()) {}
  ViewProperty(ViewProperty&& other) noexcept : slot_(other.slot_) {}
  ViewProperty& operator=(const ViewProperty&) = delete;
  ViewProperty& operator=(ViewProperty&&) = delete;
  virtual ~ViewProperty() = default;

  // Where the contents live is no part of a view's value.
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
