// SPDX-License-Identifier: MIT
#include "commands/completions/CompletionTable.hpp"
#include "commands/completions/Completions.hpp"

// Bash and zsh read the same functions, which print what may follow; only what hands the result to
// the shell differs. Nothing in the table needs quoting inside single quotes.

namespace zorvantine {

namespace {

constexpr std::string_view kCandidates = R"(
_zorvantine_keys() {
  zorvantine ${1:+--store} ${1:+"$1"} prefs describe 2>/dev/null | grep -v '^ '
  zorvantine ${1:+--store} ${1:+"$1"} prefs list 2>/dev/null |
    awk '$2 ~ /^(integer|boolean|real|string|data|date|array|dictionary)$/ { print $1 }'
}

# Prints the values that a setting can have.
_zorvantine_values_of() {
  zorvantine prefs describe "$1" 2>/dev/null |
    sed -n 's/^  type: boolean$/true false/p; s/^  type: string, //p' |
    sed 's/, / /g; s/ or / /g' | tr ' ' '\n'
}

# Prints what may follow the words given: words, or FILE or DIR for the names of files or folders.
_zorvantine_candidates() {
  local typed='' option='' store='' operand='' word
  for word in "$@"; do
    if [[ -n $option ]]; then
      if [[ $option == --store ]]; then store=$word; fi
      option=''
    elif [[ $word == -* ]]; then
      if _zorvantine_values "$typed" "$word" >/dev/null; then option=$word; fi
    elif _zorvantine_operands "${typed:+$typed }$word" >/dev/null; then
      typed="${typed:+$typed }$word"
    else
      operand=$word
    fi
  done
  if [[ -n $option ]]; then
    word=$(_zorvantine_values "$typed" "$option")
    if [[ $word == PROFILE ]]; then
      zorvantine profiles list 2>/dev/null
    else
      printf '%s\n' "$word"
    fi
    return
  fi
  if [[ $typed == 'prefs set' && -n $operand ]]; then
    _zorvantine_values_of "$operand"
  else
    for word in $(_zorvantine_operands "$typed"); do
      case $word in
        KEY) _zorvantine_keys "$store" ;;
        PROFILE) zorvantine profiles list 2>/dev/null ;;
        *) printf '%s\n' "$word" ;;
      esac
    done
  fi
  _zorvantine_options "$typed"
}
)";

constexpr std::string_view kBash = R"(
_zorvantine() {
  local current=${COMP_WORDS[COMP_CWORD]} word
  COMPREPLY=()
  for word in $(_zorvantine_candidates "${COMP_WORDS[@]:1:COMP_CWORD-1}"); do
    case $word in
      FILE | DIR)
        compopt -o filenames 2>/dev/null
        mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(if [[ $word == DIR ]]; then compgen -d -- "$current"
                                 else compgen -f -- "$current"; fi)
        ;;
      -*) if [[ $current == -* && $word == "$current"* ]]; then COMPREPLY+=("$word"); fi ;;
      *) if [[ $word == "$current"* ]]; then COMPREPLY+=("$word"); fi ;;
    esac
  done
}
complete -F _zorvantine zorvantine
)";

constexpr std::string_view kZsh = R"(
_zorvantine() {
  local word
  for word in $(_zorvantine_candidates "${(@)words[2,CURRENT-1]}"); do
    case $word in
      FILE) _files ;;
      DIR) _files -/ ;;
      -*) if [[ ${words[CURRENT]} == -* ]]; then compadd -- "$word"; fi ;;
      *) compadd -- "$word" ;;
    esac
  done
}

if [[ $funcstack[1] == _zorvantine ]]; then _zorvantine "$@"; fi
)";

std::string joined(const std::vector<std::string_view>& words) {
  std::string text;
  for (const std::string_view word : words) text += (text.empty() ? "" : " ") + std::string(word);
  return text;
}

// A function that prints words for each of several cases, and fails for all others.
class CaseFunction {
public:
  CaseFunction(std::string_view name, std::string_view subject)
      : text_("\n" + std::string(name) + "() {\n  case \"" + std::string(subject) + "\" in\n") {}

  void add(const std::string& pattern, const std::vector<std::string_view>& words) {
    text_ += "    '" + pattern + "') printf '%s\\n' '" + joined(words) + "' ;;\n";
  }

  std::string text() const { return text_ + "    *) return 1 ;;\n  esac\n}\n"; }

private:
  std::string text_;
};

std::string functions() {
  CaseFunction operands("_zorvantine_operands", "$1");
  CaseFunction options("_zorvantine_options", "$1");
  CaseFunction values("_zorvantine_values", "$1 $2");
  for (const Completions& each : completionTable()) {
    operands.add(each.words, each.operands);
    std::vector<std::string_view> names;
    for (const CompletedOption& option : each.options) {
      names.push_back(option.name);
      if (option.takesValue) values.add(each.words + ' ' + std::string(option.name), option.values);
    }
    options.add(each.words, names);
  }
  return operands.text() + options.text() + values.text() + std::string(kCandidates);
}

}  // namespace

std::string bashCompletions() {
  return "# Completions of zorvantine for bash.\n" + functions() + std::string(kBash);
}

std::string zshCompletions() { return "#compdef zorvantine\n" + functions() + std::string(kZsh); }

}  // namespace zorvantine
