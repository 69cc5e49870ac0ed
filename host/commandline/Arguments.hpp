#pragma once

#include "foundation/Result.hpp"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zorvantine {

using Words = std::span<const std::string_view>;
using Take = std::function<foundation::Outcome(std::string_view)>;

// How often an option is given.
enum class Presence {
  optional,
  required,
  oneOf,   // one of all options of the command that have this presence
  window,  // optional, and an option of every command that shows the window
};

// One option of a command: how it is read, and how help describes it.
struct Option {
  std::string_view name;   // "--format"
  std::string_view value;  // its value in help, as in "text|json"; empty for an option without one
  std::string_view help;
  Presence presence = Presence::optional;
  // Stores the value, which is empty for an option without one, or says what is wrong with it.
  Take take;
};

// One word of a command that belongs to no option.
struct Operand {
  std::string_view name;   // "KEY"
  std::string_view needs;  // "a KEY", for the message that it is missing
  Take take;
  bool repeats = false;  // any number of words, none included; the last operand only
};

// All that may follow the name of a command.
struct Arguments {
  std::vector<Option> options{};
  std::vector<Operand> operands{};
  // Called when all was read: says what does not go together, or is missing.
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
  const auto take = [name, &target, choices = std::move(choices)](std::string_view word) {
    std::vector<std::string_view> known;
    for (const auto& [choice, meaning] : choices) {
      if (choice == word) {
        target = meaning;
        return foundation::done();
      }
      known.push_back(choice);
    }
    return foundation::Outcome(foundation::Error{std::string(name) + " is " + alternatives(known) +
                                                 ", not “" + std::string(word) + "”"});
  };
  return {.name = name, .value = value, .help = help, .take = take};
}

}  // namespace zorvantine
