#pragma once

#include <string_view>

/// What the completion does, in the language of each shell. The words come from a function that is made of
/// the commands and the catalogue: it prints those of a place.

// bash splits words at "=".
inline constexpr std::string_view kBashCompletion = R"shell(
_vekrun() {
  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} IFS=$' \t\n'
  local command='' subject='' name='' word i
  for ((i = 1; i < COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if [[ $word == -* ]]; then
      [[ ${COMP_WORDS[i+1]} == = ]] && ((++i))
      [[ $(_vekrun_words "takes:$word") ]] && ((++i))
    elif [[ $word == = ]]; then
      ((++i))
    elif [[ -z $command ]]; then
      command=$word
      [[ $word == *.vekproj ]] && command=run subject=$word
    elif [[ -z $subject ]]; then
      subject=$word
    fi
  done
  if [[ $current == = ]]; then
    name=$before current=''
  elif [[ $before == = ]]; then
    name=${COMP_WORDS[COMP_CWORD-2]}
  fi
  COMPREPLY=()
  if [[ -n $name && $name != -* ]]; then
    [[ $command == exec ]] && COMPREPLY=($(compgen -W "$(_vekrun_words "values:$name")" -- "$current"))
    ((${#COMPREPLY[@]})) || _vekrun_files
  elif word=$(_vekrun_words "takes:${name:-$before}") && [[ -n $word ]]; then
    case $word in
      FILE) _vekrun_files ;;
      FORMAT) COMPREPLY=($(compgen -W 'text jsonl junit' -- "$current")) ;;
      FORMAT=FILE)
        COMPREPLY=($(compgen -W 'text= jsonl= junit=' -- "$current"))
        compopt -o nospace 2>/dev/null
        ;;
    esac
  elif [[ $current == -* ]]; then
    COMPREPLY=($(compgen -W "$(_vekrun_words "options:$command")" -- "$current"))
  elif [[ -z $command ]]; then
    COMPREPLY=($(compgen -W "$(_vekrun_words commands)" -- "$current"))
    _vekrun_projects
  elif [[ $command == exec && -n $subject ]]; then
    COMPREPLY=($(compgen -W "$(_vekrun_words "properties:$subject")" -- "$current"))
    compopt -o nospace 2>/dev/null
  elif [[ -z $subject ]]; then
    case $command in
      exec | describe) COMPREPLY=($(compgen -W "$(_vekrun_words types)" -- "$current")) ;;
      completion) COMPREPLY=($(compgen -W 'bash zsh fish' -- "$current")) ;;
      help) COMPREPLY=($(compgen -W "$(_vekrun_words commands)" -- "$current")) ;;
      run | validate | list) _vekrun_projects ;;
    esac
  fi
}
_vekrun_files() {
  local IFS=$'\n'
  compopt -o filenames 2>/dev/null
  COMPREPLY=($(compgen -f -- "$current"))
}
_vekrun_projects() {
  local IFS=$'\n'
  compopt -o filenames 2>/dev/null
  COMPREPLY+=($(compgen -f -X '!*.vekproj' -- "$current") $(compgen -d -- "$current"))
}
complete -F _vekrun vekrun
)shell";

inline constexpr std::string_view kZshCompletion = R"shell(
_vekrun() {
  local command='' subject='' word current=${words[CURRENT]} before=${words[CURRENT-1]} i
  for ((i = 2; i < CURRENT; ++i)); do
    word=${words[i]}
    if [[ $word == -* ]]; then
      [[ -n $(_vekrun_words "takes:$word") ]] && ((++i))
    elif [[ -z $command ]]; then
      command=$word
      [[ $word == *.vekproj ]] && command=run subject=$word
    elif [[ -z $subject ]]; then
      subject=$word
    fi
  done
  word=$(_vekrun_words "takes:$before")
  if [[ $word == FILE ]]; then
    _files
  elif [[ $word == *=FILE && $current == *=* ]]; then
    compset -P '*='
    _files
  elif [[ $word == FORMAT=FILE ]]; then
    compadd -S '' -- text= jsonl= junit=
  elif [[ -n $word ]]; then
    [[ $word == FORMAT ]] && compadd -- text jsonl junit
  elif [[ $current == -* ]]; then
    compadd -- $(_vekrun_words "options:$command")
  elif [[ -z $command ]]; then
    compadd -- $(_vekrun_words commands)
    _files -g '*.vekproj'
  elif [[ $command == exec && -n $subject && $current == *=* ]]; then
    word=$(_vekrun_words "values:${current%%=*}")
    compset -P '*='
    if [[ -n $word ]]; then compadd -- ${=word}; else _files; fi
  elif [[ $command == exec && -n $subject ]]; then
    compadd -S '' -- $(_vekrun_words "properties:$subject")
  elif [[ -z $subject ]]; then
    case $command in
      exec | describe) compadd -- $(_vekrun_words types) ;;
      completion) compadd -- bash zsh fish ;;
      help) compadd -- $(_vekrun_words commands) ;;
      run | validate | list) _files -g '*.vekproj' ;;
    esac
  fi
}
if [[ ${funcstack[1]} == _vekrun ]]; then _vekrun "$@"; else compdef _vekrun vekrun; fi
)shell";

inline constexpr std::string_view kFishCompletion = R"shell(
function __vekrun_complete
    set -l tokens (commandline -opc)
    set -l current (commandline -ct)
    set -l command ''
    set -l subject ''
    set -l form ''
    for word in $tokens[2..-1]
        if test -n "$form"
            set form ''
        else if string match -q -- '-*' $word
            set form (__vekrun_words "takes:$word")
        else if test -z "$command"
            set command $word
            string match -q '*.vekproj' $word; and set command run; and set subject $word
        else if test -z "$subject"
            set subject $word
        end
    end
    if test "$form" = FORMAT
        printf '%s\n' text jsonl junit
    else if test "$form" = FORMAT=FILE
        printf '%s\n' text= jsonl= junit=
    else if test -n "$form"
        test "$form" = FILE; and __fish_complete_path $current
    else if string match -q -- '-*' $current
        __vekrun_words "options:$command"
    else if test -z "$command"
        __vekrun_words commands
        __fish_complete_suffix .vekproj
    else if test "$command" = exec -a -n "$subject"
        set -l name (string match -r '^([^=]*)=' -- $current)[2]
        set -l values (__vekrun_words "values:$name")
        if test -z "$name"
            __vekrun_words "properties:$subject"
        else if test -n "$values"
            printf "$name=%s\n" $values
        else
            printf "$name=%s\n" (__fish_complete_path (string replace -r '^[^=]*=' '' -- $current))
        end
    else if test -z "$subject"
        switch $command
            case exec describe
                __vekrun_words types
            case completion
                printf '%s\n' bash zsh fish
            case help
                __vekrun_words commands
            case run validate list
                __fish_complete_suffix .vekproj
        end
    end
end
complete -c vekrun -f -a '(__vekrun_complete)'
)shell";
