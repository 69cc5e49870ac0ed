// SPDX-License-Identifier: MIT
#include "QEVModels/PortCorrection.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/localized.hpp"

#include <array>

namespace QEVModels {

using QEVCommonTools::formatted;
using QEVCommonTools::localized;

namespace {

// The message for one part, and for several.
struct Predicate {
  std::string_view one;
  std::string_view several;
};

Predicate predicate(PortCorrection::Kind kind) {
  switch (kind) {
    case PortCorrection::Kind::invalid:
      return {"%@ is neither a port nor a range and was left out",
              "%@ are neither ports nor ranges and were left out"};
    case PortCorrection::Kind::outOfRange:
      return {"%@ is not a port (0–65535) and was left out",
              "%@ are not ports (0–65535) and were left out"};
    case PortCorrection::Kind::reversed:
      return {"%@ was written backwards and was turned",
              "%@ were written backwards and were turned"};
    case PortCorrection::Kind::duplicate:
      return {"%@ was named more than once and was kept once",
              "%@ were named more than once and were kept once"};
  }
  return {};
}

// “a”, “a” and “b”, “a”, “b” and “c”, “a”, “b” and 7 more
std::string listed(const std::vector<std::string>& pieces, std::size_t others) {
  std::string result;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const std::string piece = formatted(localized("“%@”"), {pieces[i]});
    const bool isLast = i + 1 == pieces.size() && others == 0;
    result =
        i == 0 ? piece : formatted(localized(isLast ? "%@ and %@" : "%@, %@"), {result, piece});
  }
  return others == 0 ? result
                     : formatted(localized("%@ and %@ more"), {result, std::to_string(others)});
}

}  // namespace

PortCorrection::PortCorrection(Kind kind, const std::vector<std::string>& pieces,
                               std::size_t others)
    : kind_(kind) {
  const auto [one, several] = predicate(kind);
  message_ =
      formatted(localized(pieces.size() + others == 1 ? one : several), {listed(pieces, others)});
}

std::string_view nameOf(PortCorrection::Kind kind) {
  constexpr std::array<std::string_view, 4> names{"invalid", "outOfRange", "reversed", "duplicate"};
  return names.at(static_cast<std::size_t>(kind));
}

}  // namespace QEVModels
