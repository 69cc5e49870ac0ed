#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace viewkit {

struct Body;

// The bodies that read a value, each in its last run. Whatever holds a value that bodies read holds
// one of these.
class Dependents {
public:
  // The body that is running now reads the value. Outside of a body this does nothing.
  void recordRead();

  // The value changed: every body that read it is marked to run again.
  void markAll();

private:
  struct Reader {
    std::weak_ptr<Body> body;
    // Which of the body's runs read the value.
    std::uint64_t run = 0;
  };

  // By the address of the body, which no other one takes as long as the reader is here.
  std::vector<Reader> readers_;
};

}  // namespace viewkit
