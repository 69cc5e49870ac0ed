// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace viewkit {

struct Body;

// The bodies that have read a value in their last run. Every holder of a value that bodies read has
// one. Main thread only.
//
//     dependents.recordRead();  // in the getter, before it returns the value
//     dependents.markAll();     // in the setter, after it has changed the value
class Dependents {
public:
  // Records that the running body reads the value. Does nothing outside of a body.
  void recordRead();

  // To be called after the value has changed: marks every body that read it to run again.
  void markAll();

private:
  struct Reader {
    std::weak_ptr<Body> body;
    // Which of the body's runs read the value.
    std::uint64_t run = 0;
  };

  // Sorted by the body; a weak pointer keeps the identity of an expired body unique.
  std::vector<Reader> readers_;
};

}  // namespace viewkit
