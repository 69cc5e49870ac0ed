// SPDX-License-Identifier: MIT
#include "Contender.hpp"

#include <unordered_map>
#include <variant>

namespace {

// The lower limit: a look-up in a map that is not kept on disk.
class MapContender final : public Contender {
public:
  explicit MapContender(std::size_t keyCount) {
    for (std::size_t i = 0; i < keyCount; ++i) {
      names_.push_back(keyName(i));
      switch (kindOf(i)) {
        case KeyKind::boolean: values_.emplace(names_[i], true); break;
        case KeyKind::string: values_.emplace(names_[i], stringValue(i)); break;
        case KeyKind::bytes: values_.emplace(names_[i], bytesValue(i)); break;
      }
    }
  }

  bool readBoolean(std::size_t key) override {
    return std::get<bool>(values_.find(names_[key])->second);
  }
  std::size_t readString(std::size_t key) override {
    return lengthAndLast(std::get<std::string>(values_.find(names_[key])->second));
  }
  std::size_t readBytes(std::size_t key) override {
    return lengthAndLast(std::get<std::vector<unsigned char>>(values_.find(names_[key])->second));
  }
  void writeBoolean(std::size_t key, bool value) override {
    values_.insert_or_assign(names_[key], value);
  }

private:
  std::vector<std::string> names_;
  std::unordered_map<std::string, std::variant<bool, std::string, std::vector<unsigned char>>>
      values_;
};

}  // namespace

const ContenderKind& mapContender() {
  static const ContenderKind kind{
      .name = "unordered_map",
      .open = [](const std::filesystem::path&, std::size_t keyCount) -> std::unique_ptr<Contender> {
        return std::make_unique<MapContender>(keyCount);
      },
      .fill = [](const std::filesystem::path&, std::size_t) {},
      .persists = false,
  };
  return kind;
}
