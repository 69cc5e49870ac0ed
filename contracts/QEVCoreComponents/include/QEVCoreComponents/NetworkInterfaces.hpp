// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

#include <string>
#include <vector>

namespace QEVCoreComponents {

// An interface on which packets can be captured.
//
//     NetworkInterface{.name = "lo", .addresses = {"127.0.0.1", "::1"}, .isUp = true}
struct NetworkInterface {
  std::string name;
  // In text form: "192.0.2.7", "2001:db8::7".
  std::vector<std::string> addresses;
  bool isUp = false;

  friend bool operator==(const NetworkInterface&, const NetworkInterface&) = default;
};

// The machine's list of interfaces, which the host supplies. Main thread.
//
//     struct NoInterfaces final : NetworkInterfaces {
//       std::vector<NetworkInterface> all() const override { return {}; }
//     };
class NetworkInterfaces : public foundation::ObservableObject {
public:
  // The current interfaces, in the order in which they are shown. An implementation announces each
  // change that it can observe.
  virtual std::vector<NetworkInterface> all() const = 0;
};

}  // namespace QEVCoreComponents
