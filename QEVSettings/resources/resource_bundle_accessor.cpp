// SPDX-License-Identifier: MIT
#include "resources/resource_bundle_accessor.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace QEVSettings {

namespace {

using foundation::Bundle;

constexpr const char* kBundleName = "QEVSettings_QEVSettings";

// Its address tells which program or library the module is linked into.
class BundleFinder {
public:
  static std::shared_ptr<Bundle> bundle() { return Bundle::containing(&kAddress); }

private:
  static constexpr char kAddress = 0;
};

std::shared_ptr<Bundle> findModuleBundle() {
  const Bundle& main = Bundle::mainBundle();
  const std::shared_ptr<Bundle> own = BundleFinder::bundle();
  const std::array<std::filesystem::path, 3> candidates{
      main.resourceFolder(),
      own ? own->resourceFolder() : main.resourceFolder(),
      main.folder(),
  };
  for (const std::filesystem::path& folder : candidates) {
    if (auto bundle = Bundle::open(folder / (std::string(kBundleName) + ".bundle"))) return bundle;
  }
  std::fprintf(stderr, "unable to find bundle named %s\n", kBundleName);
  std::abort();
}

}  // namespace

const Bundle& moduleBundle() {
  static const std::shared_ptr<Bundle> bundle = findModuleBundle();
  return *bundle;
}

std::string localized(std::string_view key) { return moduleBundle().localizedString(key, "", ""); }

}  // namespace QEVSettings
