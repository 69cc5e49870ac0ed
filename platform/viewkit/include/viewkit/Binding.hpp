#pragma once

#include <functional>
#include <utility>

namespace viewkit {

// A value that lives elsewhere, to be read and written. Reading it in a body makes the body depend on
// what it reads.
template <class T>
class Binding {
public:
  Binding(std::function<T()> get, std::function<void(T)> set) : get_(std::move(get)), set_(std::move(set)) {}

  // A value that never changes; writing it does nothing.
  static Binding constant(T value) {
    return Binding([value] { return value; }, [](const T&) {});
  }

  T get() const { return get_(); }
  void set(T value) const { set_(std::move(value)); }

private:
  std::function<T()> get_;
  std::function<void(T)> set_;
};

}  // namespace viewkit
