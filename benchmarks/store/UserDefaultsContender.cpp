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
  UserDefaultsContender(const std::filesystem::path& folder, std::size_t keyCount,
                        bool keepsHistory)
      : store_(UserDefaults::open(fileIn(folder))) {
    store_->setHistoryRules({.isKept = [keepsHistory] { return keepsHistory; }});
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

template <bool keepsHistory>
std::unique_ptr<Contender> openContender(const std::filesystem::path& folder,
                                         std::size_t keyCount) {
  return std::make_unique<UserDefaultsContender>(folder, keyCount, keepsHistory);
}

void fill(const std::filesystem::path& folder, std::size_t keyCount) {
  PreferenceDictionary values;
  for (std::size_t i = 0; i < keyCount; ++i) values.emplace(keyName(i), valueOf(i));
  static_cast<void>(UserDefaults::open(fileIn(folder))->applyAll(values));
}

}  // namespace

const ContenderKind& userDefaultsContender() {
  static const ContenderKind kind{
      .name = "UserDefaults", .open = openContender<true>, .fill = fill};
  return kind;
}

const ContenderKind& plainUserDefaultsContender() {
  static const ContenderKind kind{.name = "no history", .open = openContender<false>, .fill = fill};
  return kind;
}
