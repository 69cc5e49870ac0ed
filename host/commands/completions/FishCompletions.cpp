// SPDX-License-Identifier: MIT
#include "commands/completions/CompletionTable.hpp"
#include "commands/completions/Completions.hpp"

#include <set>

namespace zorvantine {

namespace {

constexpr std::string_view kKeys = R"(
function __zorvantine_keys
    set -l typed (commandline -opc)
    set -l store
    if set -l at (contains -i -- --store $typed); and test $at -lt (count $typed)
        set store --store $typed[(math $at + 1)]
    end
    zorvantine $store prefs describe 2>/dev/null | grep -v '^ '
    zorvantine $store prefs list 2>/dev/null |
        awk '$2 ~ /^(integer|boolean|real|string|data|date|array|dictionary)$/ { print $1 }'
end

# The keys, or after a key the values that the setting can have.
function __zorvantine_settings
    set -l typed (commandline -opc)
    set -l at (contains -i -- set $typed)
    if test $at -eq (count $typed)
        __zorvantine_keys
        return
    end
    zorvantine prefs describe $typed[(math $at + 1)] 2>/dev/null |
        sed -n 's/^  type: boolean$/true false/p; s/^  type: string, //p' |
        sed 's/, / /g; s/ or / /g' | tr ' ' '\n'
end

complete -c zorvantine -f
)";

std::string quoted(std::string_view text) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') result += '\\';
    result += c;
  }
  return result + '\'';
}

// Help up to the end of its first sentence.
std::string_view firstSentence(std::string_view help) {
  return help.substr(0, help.find_first_of(".:;"));
}

// Succeeds when the words before the cursor, without options and their values, begin with the words
// of one completion and of no longer one.
std::string wordsFunction(const std::vector<Completions>& table) {
  std::set<std::string_view> withValue;
  for (const Completions& each : table) {
    for (const CompletedOption& option : each.options) {
      if (option.takesValue) withValue.insert(option.name);
    }
  }
  std::string known;
  std::string valued;
  for (const Completions& each : table) {
    if (!each.words.empty()) known += ' ' + quoted(each.words);
  }
  for (const std::string_view name : withValue) valued += ' ' + std::string(name);
  return "# Completions of zorvantine for fish.\n\n"
         "function __zorvantine_words_are\n"
         "    set -l words ''\n"
         "    set -l is_value no\n"
         "    for word in (commandline -opc)[2..]\n"
         "        if test $is_value = yes\n"
         "            set is_value no\n"
         "        else if contains -- $word" +
         valued +
         "\n"
         "            set is_value yes\n"
         "        else if contains -- (string trim -- \"$words $word\")" +
         known +
         "\n"
         "            set words (string trim -- \"$words $word\")\n"
         "        end\n"
         "    end\n"
         "    test \"$words\" = \"$argv[1]\"\n"
         "end\n";
}

std::string operandText(std::string_view operand, std::string_view command) {
  if (operand == "FILE") return " -F";
  if (operand == "PROFILE") return " -a '(zorvantine profiles list 2>/dev/null)'";
  if (operand == "KEY" && command == "prefs set") return " -a '(__zorvantine_settings)'";
  if (operand == "KEY") return " -a '(__zorvantine_keys)'";
  return " -a " + quoted(operand);
}

std::string optionText(const CompletedOption& option) {
  std::string text = " -l " + std::string(option.name.substr(2));
  if (option.takesValue) {
    std::string values;
    for (const std::string_view value : option.values) values += ' ' + std::string(value);
    const bool isFile = values == " FILE" || values == " DIR";
    if (values == " DIR") {
      text += " -x -a '(__fish_complete_directories)'";
    } else if (values == " PROFILE") {
      text += " -x -a '(zorvantine profiles list 2>/dev/null)'";
    } else if (isFile) {
      text += " -r -F";
    } else {
      text += " -x" + (values.empty() ? "" : " -a " + quoted(values.substr(1)));
    }
  }
  return text + " -d " + quoted(firstSentence(option.help));
}

}  // namespace

std::string fishCompletions() {
  const auto table = completionTable();
  std::string text = wordsFunction(table) + std::string(kKeys);
  for (const Completions& each : table) {
    const std::string start =
        "complete -c zorvantine -n " + quoted("__zorvantine_words_are " + quoted(each.words));
    for (const std::string_view operand : each.operands)
      text += start + operandText(operand, each.words) + '\n';
    for (const CompletedOption& option : each.options) text += start + optionText(option) + '\n';
  }
  return text;
}

}  // namespace zorvantine
