// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace viewkit {

// Read and write access to a value that is stored elsewhere. A body that reads it runs again when
// the value changes. Copies share the two functions.
//
//     const Binding<bool> isPlaying([player] { return player->isPlaying.get(); },
//                                   [player](bool plays) { player->isPlaying = plays; });
//     Toggle(isPlaying).help("Plays the recording")
template <class T>
class Binding {
public:
  Binding(std::function<T()> get, std::function<void(T)> set)
      : access_(std::make_shared<const Access>(Access{std::move(get), std::move(set)})) {}

  // A value that never changes; writing it does nothing.
  static Binding constant(T value) {
    return Binding([value] { return value; }, [](const T&) {});
  }

  T get() const { return access_->get(); }
  void set(T value) const { access_->set(std::move(value)); }

private:
  struct Access {
    std::function<T()> get;
    std::function<void(T)> set;
  };

  std::shared_ptr<const Access> access_;
};

}  // namespace viewkit
