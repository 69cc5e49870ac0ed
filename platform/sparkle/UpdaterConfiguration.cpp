// SPDX-License-Identifier: MIT
#include "sparkle/UpdaterConfiguration.hpp"

#include <utility>

namespace sparkle {

namespace {

UpdaterConfiguration& current() {
  static UpdaterConfiguration configuration;
  return configuration;
}

}  // namespace

void UpdaterConfiguration::setStandard(UpdaterConfiguration configuration) {
  current() = std::move(configuration);
}

const UpdaterConfiguration& UpdaterConfiguration::standard() { return current(); }

}  // namespace sparkle
