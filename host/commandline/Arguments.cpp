// SPDX-License-Identifier: MIT
#include "commandline/Arguments.hpp"

#include "foundation/Translation.hpp"

#include <algorithm>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::translated;

namespace {

Outcome takeOperands(std::string_view command, const std::vector<std::string_view>& words,
                     const std::vector<Operand>& operands) {
  const bool repeats = !operands.empty() && operands.back().repeats;
  const bool mayLack = repeats || (!operands.empty() && operands.back().isOptional);
  const std::size_t needed = operands.size() - (mayLack ? 1 : 0);
  if (words.size() < needed)
    return Error{translated("%1 needs %2", {command, translated(operands[words.size()].needs)})};
  if (words.size() > operands.size() && !repeats) {
    return Error{translated("%1 has no use for “%2”", {command, words[operands.size()]})};
  }
  for (std::size_t at = 0; at < words.size(); ++at) {
    if (auto outcome = operands[std::min(at, operands.size() - 1)].take(words[at]); !outcome)
      return outcome;
  }
  return done();
}

}  // namespace

Outcome readArguments(std::string_view command, Words words, const Arguments& arguments) {
  const auto wrong = [command](const std::string& message) {
    return Error{std::string(command) + ": " + message};
  };
  std::vector<std::string_view> operands;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::string_view word = words[at];
    if (word == "--") {
      operands.insert(operands.end(), words.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                      words.end());
      break;
    }
    if (word.size() < 2 || word.front() != '-') {
      operands.push_back(word);
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name(word.substr(0, equals));
    const auto option = std::ranges::find(arguments.options, name, &Option::name);
    if (option == arguments.options.end())
      return wrong(translated("there is no option %1 here", {name}));

    const bool isJoined = equals != std::string_view::npos;
    std::string_view value;
    if (option->value.empty()) {
      if (isJoined) return wrong(translated("%1 takes no value", {name}));
    } else if (isJoined) {
      value = word.substr(equals + 1);
    } else if (++at < words.size()) {
      value = words[at];
    } else {
      return wrong(translated("%1 needs a value after it", {name}));
    }
    if (auto outcome = option->take(value); !outcome) return wrong(outcome.error().message);
  }
  if (auto outcome = takeOperands(command, operands, arguments.operands); !outcome) return outcome;
  return arguments.check ? arguments.check() : done();
}

std::string alternatives(const std::vector<std::string_view>& names) {
  if (names.empty()) return {};
  std::string text;
  for (const std::string_view name : std::span(names).first(names.size() - 1))
    text += (text.empty() ? "" : ", ") + std::string(name);
  return text.empty() ? std::string(names.back()) : translated("%1 or %2", {text, names.back()});
}

}  // namespace zorvantine
