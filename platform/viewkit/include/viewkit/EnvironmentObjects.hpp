// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <typeindex>
#include <utility>

namespace viewkit {

// Objects that a window shares with its views, found by their type. The value is immutable, and
// costs a pointer where there are no objects.
//
//     const auto objects = EnvironmentObjects().with(catalogue).with(history);
//     const std::shared_ptr<History> found = objects.find<History>();
class EnvironmentObjects {
public:
  EnvironmentObjects() = default;

  // The object of exactly this type that was added last; null when there is none.
  template <class T>
  std::shared_ptr<T> find() const {
    return std::static_pointer_cast<T>(find(typeid(T)));
  }

  // The same objects and this one, which hides an earlier one of its type. A null object hides an
  // earlier one too.
  template <class T>
  EnvironmentObjects with(std::shared_ptr<T> object) const {
    return EnvironmentObjects(std::make_shared<const Entry>(
        Entry{.type = typeid(T), .object = std::move(object), .earlier = newest_}));
  }

  // Equal with the same objects, added in the same order.
  friend bool operator==(const EnvironmentObjects& a, const EnvironmentObjects& b);

private:
  struct Entry {
    std::type_index type;
    std::shared_ptr<void> object;
    std::shared_ptr<const Entry> earlier;
  };

  explicit EnvironmentObjects(std::shared_ptr<const Entry> newest) : newest_(std::move(newest)) {}
  std::shared_ptr<void> find(std::type_index type) const;

  std::shared_ptr<const Entry> newest_;
};

}  // namespace viewkit
