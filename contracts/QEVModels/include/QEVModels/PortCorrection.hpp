#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QEVModels {

// What the validator had to change in a ports text, all changes of one kind together.
class PortCorrection {
public:
  enum class Kind : std::uint8_t {
    invalid,     // neither a port nor a range: left out
    outOfRange,  // a port beyond the limits, or a range that reaches there: left out
    reversed,    // a range written backwards: turned
    duplicate,   // a port or a range named more than once: kept once
  };

  // `pieces` are the first pieces concerned, as they were written, and `others` is how many more
  // there are. At least one piece.
  PortCorrection(Kind kind, const std::vector<std::string>& pieces, std::size_t others);

  Kind kind() const { return kind_; }
  // One sentence for the user, in their language, which names the pieces.
  const std::string& message() const { return message_; }

  friend bool operator==(const PortCorrection&, const PortCorrection&) = default;

private:
  Kind kind_;
  std::string message_;
};

// "invalid", "outOfRange", "reversed" or "duplicate".
std::string_view nameOf(PortCorrection::Kind kind);

}  // namespace QEVModels
