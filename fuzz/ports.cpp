// SPDX-License-Identifier: MIT
#include "QEVModels/PortsValidator.hpp"
#include "foundation/Unicode.hpp"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

// For any text, the result is in its normal form, and the message about it fits into a row.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto result = QEVModels::validatedPorts({reinterpret_cast<const char*>(data), size});
  require(result.ports.find_first_not_of("0123456789,-") == std::string_view::npos);
  require(QEVModels::validatedPorts(result.ports) ==
          QEVModels::PortValidationResult{.ports = result.ports, .corrections = {}});
  for (std::size_t i = 0; i < result.corrections.size(); ++i) {
    const auto& correction = result.corrections[i];
    require(i == 0 || result.corrections[i - 1].kind() < correction.kind());
    require(correction.message().size() < 1000);
    require(foundation::isValidUtf8(correction.message()));
    require(correction.message().find('\n') == std::string_view::npos);
  }
  return 0;
}
