// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace QEVModels {

inline constexpr std::uint32_t kHighestPort = 65535;

// A part of a ports text between two separators.
struct PortsPiece {
  enum class Form : std::uint8_t { port, range, other };

  // As it was written.
  std::string_view text;
  Form form = Form::other;
  // The ends of a range in the order of the text; both are the same for a single port. A number
  // above the highest port is stored as the highest port plus one.
  std::uint32_t first = 0;
  std::uint32_t last = 0;

  // The text for a message: at most a few dozen characters, none of them a control character.
  std::string shown() const;
};

// Splits a ports text into its pieces. The text must outlive the pieces.
class PortsText {
public:
  explicit PortsText(std::string_view text) : rest_(text) {}

  // Nothing after the last piece.
  std::optional<PortsPiece> next();

private:
  std::string_view rest_;
};

}  // namespace QEVModels
