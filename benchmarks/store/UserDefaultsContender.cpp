// SPDX-License-Identifier: MIT
#include "Contender.hpp"
#include "foundation/UserDefaults.hpp"

#include <cstdlib>

using foundation::UserDefaults;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

std::filesystem::path fileIn(const std::filesystem::path& folder) {
  return folder / "preferences.sqlite";
}

class UserDefaultsContender final : public Contender {
public:
  UserDefaultsContender(const std::filesystem::path& folder, std::size_t keyCount)
      : store_(UserDefaults::open(fileIn(folder))) {
    for (std::size_t i = 0; i < keyCount; ++i) names_.push_back(keyName(i));
  }

  bool readBoolean(std::size_t key) override { return store_->boolForKey(names_[key]); }
  std::size_t readString(std::size_t key) override {
    return lengthAndLast(*store_->find(names_[key])->asString());
  }
  std::size_t readBytes(std::size_t key) override {
    return lengthAndLast(*store_->find(names_[key])->asData());
  }
  void writeBoolean(std::size_t key, bool value) override {
    store_->setBool(value, names_[key]);
    if (!store_->synchronize()) std::abort();
  }

private:
  std::unique_ptr<UserDefaults> store_;
  std::vector<std::string> names_;
};

PreferenceValue valueOf(std::size_t key) {
  switch (kindOf(key)) {
    case KeyKind::boolean: return true;
    case KeyKind::string: return stringValue(key);
    case KeyKind::bytes: return bytesValue(key);
  }
  return false;
}

}  // namespace

const ContenderKind& userDefaultsContender() {
  static const ContenderKind kind{
      .name = "UserDefaults",
      .open = [](const std::filesystem::path& folder,
                 std::size_t keyCount) -> std::unique_ptr<Contender> {
        return std::make_unique<UserDefaultsContender>(folder, keyCount);
      },
      .fill =
          [](const std::filesystem::path& folder, std::size_t keyCount) {
            PreferenceDictionary values;
            for (std::size_t i = 0; i < keyCount; ++i) values.emplace(keyName(i), valueOf(i));
            static_cast<void>(UserDefaults::open(fileIn(folder))->applyAll(values));
          },
  };
  return kind;
}
