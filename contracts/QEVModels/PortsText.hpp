#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace QEVModels {

inline constexpr std::uint32_t kHighestPort = 65535;

// One of the pieces that the separators of a ports text leave.
struct PortsPiece {
  enum class Form : std::uint8_t { port, range, other };

  // As it was written.
  std::string_view text;
  Form form = Form::other;
  // A port is first and last; the ends of a range stand as they were written. Numbers beyond the
  // highest port are all one above it.
  std::uint32_t first = 0;
  std::uint32_t last = 0;

  // The text for a message: at most a few dozen characters, none of them a control character.
  std::string shown() const;
};

// Takes a ports text apart, piece by piece. The text must outlive the pieces.
class PortsText {
public:
  explicit PortsText(std::string_view text) : rest_(text) {}

  // Nothing after the last piece.
  std::optional<PortsPiece> next();

private:
  std::string_view rest_;
};

}  // namespace QEVModels
