// SPDX-License-Identifier: MIT
#include "history/HistoryText.hpp"

#include "commandline/PreferenceLine.hpp"
#include "commandline/TextForm.hpp"
#include "foundation/Translation.hpp"

namespace zorvantine {

using foundation::RememberedValue;
using foundation::translated;

std::string historyText(const RememberedValue& value, std::size_t characters) {
  switch (value.kind) {
    case RememberedValue::Kind::none: return translated("no value");
    case RememberedValue::Kind::kept:
      return onOneLine(shortened(readableForm(*value.value), characters));
    case RememberedValue::Kind::tooLarge:
      return translated("%1 bytes, not kept", {std::to_string(value.bytes)});
    case RememberedValue::Kind::secret: return translated("secret");
  }
  return {};
}

}  // namespace zorvantine
