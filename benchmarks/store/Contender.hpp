// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A store of settings, as the comparison uses it. A third of the keys hold a Boolean, a third a
// string of some twenty bytes, a third 4 KiB of bytes.
class Contender {
public:
  Contender() = default;
  Contender(const Contender&) = delete;
  Contender& operator=(const Contender&) = delete;
  virtual ~Contender() = default;

  virtual bool readBoolean(std::size_t key) = 0;
  // Returns the length plus the last character. That needs the contents, but no copy of them.
  virtual std::size_t readString(std::size_t key) = 0;
  virtual std::size_t readBytes(std::size_t key) = 0;

  // Returns when the value is on the disk.
  virtual void writeBoolean(std::size_t key, bool value) = 0;
};

struct ContenderKind {
  std::string_view name;
  // Opens the store in a folder that `fill` has filled.
  std::unique_ptr<Contender> (*open)(const std::filesystem::path& folder, std::size_t keyCount);
  void (*fill)(const std::filesystem::path& folder, std::size_t keyCount);
  // Whether the store keeps anything on disk. Opening and writing are measured only if it does.
  bool persists = true;
};

const ContenderKind& userDefaultsContender();
// The same without its history.
const ContenderKind& plainUserDefaultsContender();
const ContenderKind& mapContender();
const ContenderKind& qSettingsContender();
const ContenderKind& gSettingsContender();
const ContenderKind& sqliteContender();

enum class KeyKind { boolean, string, bytes };

template <class Contents>
std::size_t lengthAndLast(const Contents& contents) {
  return contents.size() + static_cast<unsigned char>(contents.back());
}

inline KeyKind kindOf(std::size_t key) { return static_cast<KeyKind>(key % 3); }
std::string keyName(std::size_t key);
std::string stringValue(std::size_t key);
std::vector<unsigned char> bytesValue(std::size_t key);
