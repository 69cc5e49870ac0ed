// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace QEVModels {

// All changes of one kind that the validator made to a ports text.
//
//     const PortValidationResult result = validatedPorts("80, x");
//     for (const PortCorrection& each : result.corrections) show(each.message());
class PortCorrection {
public:
  enum class Kind : std::uint8_t {
    invalid,     // neither a port nor a range; removed
    outOfRange,  // a port above the highest, or a range that includes one; removed
    reversed,    // a range from high to low; reordered
    duplicate,   // a repeated port or range; kept once
  };

  // `pieces` are the first parts of the text concerned, as they were written; at least one.
  // `others` is the number of further parts.
  PortCorrection(Kind kind, const std::vector<std::string>& pieces, std::size_t others);

  Kind kind() const { return kind_; }
  // One sentence in the user's language that names the parts.
  const std::string& message() const { return message_; }

  friend bool operator==(const PortCorrection&, const PortCorrection&) = default;

private:
  Kind kind_;
  std::string message_;
};

// "invalid", "outOfRange", "reversed" or "duplicate".
std::string_view nameOf(PortCorrection::Kind kind);

}  // namespace QEVModels
