#pragma once

#include "foundation/Result.hpp"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorvantine {

using Words = std::span<const std::string_view>;

// One option of a command, and where what is given for it goes.
struct Option {
  std::string_view name;
  bool takesValue = true;
  // The value is empty for an option that takes none.
  std::function<foundation::Outcome(std::string_view value)> take;
};

// Hands each option among the words to its taker; what is left are the operands, in their order.
foundation::Result<std::vector<std::string_view>> readOptions(Words words, std::span<const Option> options);

// "one", "one or two", "one, two or three".
std::string alternatives(const std::vector<std::string_view>& names);

// An option without a value.
template <class T>
Option flag(std::string_view name, T& target, T value) {
  return {.name = name, .takesValue = false, .take = [&target, value](std::string_view) {
            target = value;
            return foundation::done();
          }};
}

// An option whose value is one of a few words.
template <class T, class Target = T>
Option choice(std::string_view name, Target& target, std::vector<std::pair<std::string_view, T>> choices) {
  return {.name = name, .take = [name, &target, choices = std::move(choices)](std::string_view value) {
            std::vector<std::string_view> known;
            for (const auto& [word, meaning] : choices) {
              if (word == value) {
                target = meaning;
                return foundation::done();
              }
              known.push_back(word);
            }
            return foundation::Outcome(foundation::Error{std::string(name) + " is " + alternatives(known) + ", not “" +
                                                         std::string(value) + "”"});
          }};
}

}  // namespace zorvantine
