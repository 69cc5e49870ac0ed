// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace foundation {

// The path of the good copy of a store, NAME.good. The copy is a complete store, and includes
// removed keys.
std::filesystem::path goodCopyOf(const std::filesystem::path& store);

// The lowest 31 bits of the number of the last change in the good copy, from its header. None when
// there is no good copy, or one without a header. Fails when it cannot be read.
Result<std::optional<std::uint32_t>> lastChangeOfGoodCopy(const std::filesystem::path& store);
inline std::uint32_t lowBitsOfChange(std::int64_t number) {
  return static_cast<std::uint32_t>(number & 0x7FFFFFFF);
}

// Whether a store whose last change has this number lacks changes of the good copy.
bool isBehind(std::int64_t lastChange, std::optional<std::uint32_t> lastOfCopy);

// Whether the good copy is less than a day old and lacks few changes of the store. `lastOfCopy` is
// the result of `lastChangeOfGoodCopy`, `lastChange` the number of the store's last change.
bool isGoodCopyRecent(const std::filesystem::path& store, std::optional<std::uint32_t> lastOfCopy,
                      std::int64_t lastChange);

enum class CopyOutcome {
  done,
  failed,   // now; the copy is as it was
  damaged,  // the store or its history is, or it has lost what its copy holds; the copy is as it
            // was
};

// Renews the good copy unless it has the store's last change. The new copy is read back, and
// replaces the old one only if it has every change of it, or a newer one of the same key. Needs the
// repair lock.
CopyOutcome replaceGoodCopy(const std::filesystem::path& store);

}  // namespace foundation
