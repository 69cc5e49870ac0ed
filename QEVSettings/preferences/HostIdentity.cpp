// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/HostIdentity.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace QEVSettings {

namespace {

bool mayStandInId(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '.' || character == '-' ||
         character == '_';
}

std::string programName() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "host" : program.filename().string();
}

HostIdentity completed(HostIdentity identity) {
  if (identity.id.empty()) identity.id = programName();
  std::ranges::replace_if(
      identity.id, [](char each) { return !mayStandInId(each); }, '-');
  // These two are no names for a folder.
  if (identity.id == "." || identity.id == "..") identity.id.assign(identity.id.size(), '-');
  if (identity.displayName.empty()) identity.displayName = identity.id;
  return identity;
}

HostIdentity& identityOfProcess() {
  static HostIdentity identity = completed({});
  return identity;
}

}  // namespace

void HostIdentity::set(HostIdentity identity) {
  identityOfProcess() = completed(std::move(identity));
}

const HostIdentity& HostIdentity::current() { return identityOfProcess(); }

}  // namespace QEVSettings
