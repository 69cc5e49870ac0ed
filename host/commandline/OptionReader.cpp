#include "commandline/OptionReader.hpp"

#include <algorithm>

namespace zorvantine {

using foundation::Error;

foundation::Result<std::vector<std::string_view>> readOptions(Words words, std::span<const Option> options) {
  std::vector<std::string_view> operands;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::string_view word = words[at];
    if (word == "--") {
      operands.insert(operands.end(), words.begin() + static_cast<std::ptrdiff_t>(at) + 1, words.end());
      break;
    }
    // A lone dash is an operand: it stands for standard input.
    if (word.size() < 2 || word.front() != '-') {
      operands.push_back(word);
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string_view name = word.substr(0, equals);
    const auto option = std::ranges::find(options, name, &Option::name);
    if (option == options.end()) return Error{"there is no option " + std::string(name) + " here"};

    std::string_view value;
    if (option->takesValue) {
      if (equals == std::string_view::npos && ++at == words.size()) {
        return Error{std::string(name) + " needs a value after it"};
      }
      value = equals == std::string_view::npos ? words[at] : word.substr(equals + 1);
    } else if (equals != std::string_view::npos) {
      return Error{std::string(name) + " takes no value"};
    }
    if (auto outcome = option->take(value); !outcome) return outcome.error();
  }
  return operands;
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
