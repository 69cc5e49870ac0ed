#pragma once

#include <memory>
#include <vector>

namespace viewkit {

struct BodyRun;

// The bodies that read a value, each in its last run. Whatever holds a value that bodies read holds
// one of these.
class Dependents {
public:
  // The body that is running now reads the value. Outside of a body this does nothing.
  void recordRead();

  // The value changed: every body that read it is marked to run again.
  void markAll();

private:
  std::vector<std::weak_ptr<BodyRun>> readers_;
};

}  // namespace viewkit
