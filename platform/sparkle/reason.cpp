#include "sparkle/reason.hpp"

#include "foundation/Bundle.hpp"

#include <cstddef>
#include <string>

namespace sparkle {

foundation::Error reason(std::string_view key, const std::vector<std::string_view>& values) {
  const std::string text = foundation::Bundle::mainBundle().localizedString(key);
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto number = text[i] == '%' && i + 1 < text.size()
                            ? static_cast<std::size_t>(text[i + 1] - '1')
                            : values.size();
    if (number < values.size()) {
      filled += values[number];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return {filled};
}

}  // namespace sparkle
