#include "apps/cli/command.h"
#include "host/closest.h"

namespace cli {
namespace {

constexpr char kBash[] =
    R"sh(# Completes quorvantis in bash. Every word is asked of the program itself.
_quorvantis() {
  local program=${COMP_WORDS[0]/#\~/$HOME} typed=${COMP_WORDS[COMP_CWORD]} text meaning word
  local words=() rest=${COMP_LINE#"${COMP_WORDS[0]}"} before='' blanks
  # Bash splits a word at "=" and ":" too: what no blank separates is one word.
  for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
    blanks=${rest%%[^[:blank:]]*}
    rest=${rest#"$blanks$word"}
    word=${word#[\"\']}
    word=${word%[\"\']}
    word=${word//\\/}
    if [[ $blanks || ${#words[@]} == 0 ]]; then
      words+=("$word")
      before=''
    else
      before=${words[-1]}
      words[-1]+=$word
    fi
  done
  # What it completes is the last part alone, and that stands behind a "=".
  [[ $typed == [=:]* ]] && before+=$typed
  COMPREPLY=()
  while IFS=$'\t' read -r text meaning; do
    if [[ $text == :files ]]; then
      compopt -o default 2>/dev/null
      return
    fi
    text=${text:${#before}}
    case $typed in
      \"* | \'*) COMPREPLY+=("$text") ;;
      *) COMPREPLY+=("$(printf %q "$text")") ;;
    esac
  done < <("$program" __complete "${words[@]}" 2>/dev/null)
}
complete -F _quorvantis quorvantis)sh";

constexpr char kZsh[] = R"sh(#compdef quorvantis
# Completes quorvantis in zsh. Every word is asked of the program itself.
_quorvantis() {
  local text meaning
  local -a found typed
  typed=("${(@Q)words[2,CURRENT]}")
  # A quote that isn't closed yet is no part of the word.
  [[ ${typed[-1]} == ([\"\']|--*=[\"\'])* ]] && typed[-1]=${typed[-1]/[\"\']/}
  while IFS=$'\t' read -r text meaning; do
    if [[ $text == :files ]]; then
      [[ $PREFIX == --*=* ]] && compset -P '*='
      _files
      return
    fi
    found+=("${text//:/\\:}${meaning:+:$meaning}")
  done < <("${(Q)words[1]}" __complete "${typed[@]}" 2>/dev/null)
  _describe -V word found
}
if [[ ${funcstack[1]} == _quorvantis ]]; then
  _quorvantis "$@"
else
  compdef _quorvantis quorvantis
fi)sh";

constexpr char kFish[] =
    R"sh(# Completes quorvantis in fish. Every word is asked of the program itself.
function __quorvantis_complete
    set -l words (commandline -opc)
    # A quote that isn't closed yet is no part of the word.
    set -l typed (commandline -ct | string replace -r '^(--[a-z]+=)?["\']' '$1' | string unescape)
    for line in ($words[1] __complete $words[2..-1] "$typed" 2>/dev/null)
        if string match -q ':files*' -- $line
            set -l option (string match -r -- '^--[a-z]+=' "$typed")
            __fish_complete_path (string replace -r -- '^--[a-z]+=' '' "$typed") | string replace -r -- '^' "$option"
        else
            echo $line
        end
    end
end
complete -c quorvantis -f -k -a '(__quorvantis_complete)')sh";

struct Script {
  const char* shell;
  const char* text;
};
constexpr Script kScripts[] = {{"bash", kBash}, {"zsh", kZsh}, {"fish", kFish}};

}  // namespace

Outcome<Done> printCompletions(Session& session, const Arguments& arguments) {
  std::vector<std::string> shells;
  for (const auto& [shell, text] : kScripts) {
    if (arguments[0] == shell) {
      session.print(text);
      return Done{};
    }
    shells.emplace_back(shell);
  }
  return Failure{ExitCode::WrongUse, "no script for \"" + arguments[0] +
                                         "\"; SHELL is bash, zsh or fish" +
                                         host::didYouMean(arguments[0], shells)};
}

}  // namespace cli
