// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"
#include "foundation/Translation.hpp"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorvantine {

using foundation::translated;

using Words = std::span<const std::string_view>;
using Take = std::function<foundation::Outcome(std::string_view)>;

// How often an option is given.
enum class Presence {
  optional,
  required,
  oneOf,   // exactly one of the command's options with this presence is given
  window,  // optional; every command of the window has it
};

// One option of a command: how it is read, and how help describes it.
struct Option {
  std::string_view name;   // "--format"
  std::string_view value;  // its value in help, as in "text|json"; empty for an option without one
  std::string_view help;
  std::vector<std::string_view> choices{};  // all of its values; empty when there are too many
  Presence presence = Presence::optional;
  // Stores the value, or returns what is wrong with it. Gets an empty text when there is no value.
  Take take;
};

// A word of a command that belongs to no option.
struct Operand {
  std::string_view name;   // "KEY"
  std::string_view needs;  // "a KEY", for the message that it is missing; a key of `translated`
  Take take;
  bool repeats = false;     // stands for zero or more words; allowed for the last operand only
  bool isOptional = false;  // stands for zero or one word; allowed for the last operand only
};

// What may follow the name of a command.
struct Arguments {
  std::vector<Option> options{};
  std::vector<Operand> operands{};
  // Called after all words are read. Returns what is missing or contradictory.
  std::function<foundation::Outcome()> check{};
};

// Reads the words that follow a command's name. An option's value is the next word, whatever it
// looks like, or is joined to the option by "=". Options may stand anywhere, and "--" ends them. A
// lone "-" is an operand.
foundation::Outcome readArguments(std::string_view command, Words words,
                                  const Arguments& arguments);

// "one", "one or two", "one, two or three".
std::string alternatives(const std::vector<std::string_view>& names);

// An option without a value.
template <class T>
Option flag(std::string_view name, std::string_view help, T& target, T value) {
  return {.name = name, .value = {}, .help = help, .take = [&target, value](std::string_view) {
            target = value;
            return foundation::done();
          }};
}

// An option whose value is one of a few words.
template <class T, class Target = T>
Option choice(std::string_view name, std::string_view value, std::string_view help, Target& target,
              std::vector<std::pair<std::string_view, T>> choices) {
  std::vector<std::string_view> known;
  known.reserve(choices.size());
  for (const auto& [choice, meaning] : choices) known.push_back(choice);
  const auto take = [name, &target, choices = std::move(choices), known](std::string_view word) {
    for (const auto& [choice, meaning] : choices) {
      if (choice != word) continue;
      target = meaning;
      return foundation::done();
    }
    return foundation::Outcome(
        foundation::Error{translated("%1 is %2, not “%3”", {name, alternatives(known), word})});
  };
  return {.name = name, .value = value, .help = help, .choices = known, .take = take};
}

}  // namespace zorvantine
