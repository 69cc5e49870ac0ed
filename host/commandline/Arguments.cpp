#include "commandline/Arguments.hpp"

#include <algorithm>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;

namespace {

Outcome takeOperands(std::string_view command, const std::vector<std::string_view>& words,
                     const std::vector<Operand>& operands) {
  const bool repeats = !operands.empty() && operands.back().repeats;
  const bool mayLack = repeats || (!operands.empty() && operands.back().isOptional);
  const std::size_t needed = operands.size() - (mayLack ? 1 : 0);
  if (words.size() < needed)
    return Error{std::string(command) + " needs " + std::string(operands[words.size()].needs)};
  if (words.size() > operands.size() && !repeats) {
    return Error{std::string(command) + " has no use for “" + std::string(words[operands.size()]) +
                 "”"};
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
    if (option == arguments.options.end()) return wrong("there is no option " + name + " here");

    const bool isJoined = equals != std::string_view::npos;
    std::string_view value;
    if (option->value.empty()) {
      if (isJoined) return wrong(name + " takes no value");
    } else if (isJoined) {
      value = word.substr(equals + 1);
    } else if (++at < words.size()) {
      value = words[at];
    } else {
      return wrong(name + " needs a value after it");
    }
    if (auto outcome = option->take(value); !outcome) return wrong(outcome.error().message);
  }
  if (auto outcome = takeOperands(command, operands, arguments.operands); !outcome) return outcome;
  return arguments.check ? arguments.check() : done();
}

std::string alternatives(const std::vector<std::string_view>& names) {
  std::string text;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (at > 0) text += at + 1 < names.size() ? ", " : " or ";
    text += names[at];
  }
  return text;
}

}  // namespace zorvantine
