// SPDX-License-Identifier: MIT
#pragma once

namespace viewkit {

// Marks a node that fades out when it is removed, within an animation or not.
class FadesOut {
public:
  virtual ~FadesOut() = default;
};

}  // namespace viewkit
