#pragma once

#include "foundation/ObservableObject.hpp"

#include <string>
#include <vector>

namespace QEVCoreComponents {

// An interface on which packets can be captured.
struct NetworkInterface {
  std::string name;
  // As they are written: "192.0.2.7", "2001:db8::7".
  std::vector<std::string> addresses;
  bool isUp = false;

  friend bool operator==(const NetworkInterface&, const NetworkInterface&) = default;
};

// The machine's list of interfaces, which the host supplies. Main thread.
class NetworkInterfaces : public foundation::ObservableObject {
public:
  // As they stand now, in the order in which they are listed. Whoever keeps the list announces a
  // change where it can tell.
  virtual std::vector<NetworkInterface> all() const = 0;
};

}  // namespace QEVCoreComponents
