#pragma once

#include "foundation/Result.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace foundation {

// The last good copy of a store, next to it: NAME.good, a store that is complete in itself, removed
// keys included.
std::filesystem::path goodCopyOf(const std::filesystem::path& store);

// The number of the last change in the good copy, as far as its header tells: the lowest 31 bits.
// None when there is no good copy, or one without a header. Fails when it cannot be read.
Result<std::optional<std::uint32_t>> lastChangeOfGoodCopy(const std::filesystem::path& store);
inline std::uint32_t lowBitsOfChange(std::int64_t number) {
  return static_cast<std::uint32_t>(number & 0x7FFFFFFF);
}

// Whether the good copy has changes that a store does not have, whose last change was this one.
bool isBehind(std::int64_t lastChange, std::optional<std::uint32_t> lastOfCopy);

enum class CopyOutcome {
  done,
  failed,   // now; the copy is as it was
  damaged,  // the store is, or it has lost what its copy holds; the copy is as it was
};

// Makes the good copy anew unless it has the store's last change. The copy is replaced only by one
// that was read back whole and has every change that it has, or a newer one of that key. Needs the
// repair lock.
CopyOutcome replaceGoodCopy(const std::filesystem::path& store);

}  // namespace foundation
