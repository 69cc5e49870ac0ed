// SPDX-License-Identifier: MIT
#pragma once

#include "headless/Window.hpp"

#include <cstdint>
#include <vector>

namespace viewkit::testing {

// Counts the work of a window since the object was made.
class Work {
public:
  explicit Work(headless::Window& window) : window_(window) {
    window.host().counters() = {};
    window.host().setObserver([this](const PresentationChanges& changes) {
      damage_.insert(damage_.end(), changes.damage.begin(), changes.damage.end());
    });
  }
  ~Work() { window_.host().setObserver({}); }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

  std::vector<std::uint64_t> done() const {
    const PassCounters& counters = window_.host().counters();
    return {counters.bodiesRun, counters.nodesLaidOut, counters.nodesChanged};
  }
  const std::vector<Rect>& damage() const { return damage_; }

private:
  headless::Window& window_;
  std::vector<Rect> damage_;
};

}  // namespace viewkit::testing
