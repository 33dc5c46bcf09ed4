# Functions that complete a command line. They walk the words before the cursor as the tool does,
# and offer what may follow. They start no process and evaluate nothing that was typed.
#
# Data, after the functions:
#   _KIVO_TOOL_options   an option a line, in seven fields:
#                          0 all names   1 the offered ones   2 what its value is: nothing, files,
#                          folders, values; empty if it takes none   3 the values   4 the separator
#                          5 the actions that it goes with, "*" for all   6 the rank of an action
#   _KIVO_TOOL_scopes    the tool itself, then a command a line, in six fields:
#                          0 its words   1 its first option   2 the end of its options
#                          3 its operand   4 "operands" if words after "--" are some
#                          5 the sets of actions that may be given together
#   _KIVO_TOOL_dashes    "two" if longer names are offered with two dashes
#   _KIVO_TOOL_lone_dash "operand" if a word "-" is one
# Lists are separated by line ends, ranks of actions by blanks. Of several actions the one with the
# smallest rank decides. A number of an option is the index of its first field.

# Keeps what the user has set away from the functions below, and puts it back. "local -" would do so
# for "set", but in POSIX mode it changes more.
_KIVO_TOOL() {
  local IFS=$'\n' _set=$- _ignores_case=''
  set -f +eux
  COMPREPLY=()
  if shopt -q nocasematch; then
    _ignores_case=yes
    shopt -u nocasematch
  fi
  _KIVO_TOOL_complete "$2"
  [[ -z $_ignores_case ]] || shopt -s nocasematch
  [[ $_set == *f* ]] || set +f
  [[ $_set != *u* ]] || set -u
  [[ $_set != *x* ]] || set -x
  [[ $_set != *e* ]] || set -e
  return 0
}

# The variables that the functions share. $1 is what readline replaces: the end of the line.
_KIVO_TOOL_complete() {
  local _line=${COMP_LINE:0:COMP_POINT} _replaced=$1
  local _words=() _word='' _raw='' _open='' _target=''
  local _index='' _typed='' _deciding='' _pending='' _ended='' _found=''
  local _scope=0 _way='' _lost='' _operands=''
  local _known='' _lead=''
  _KIVO_TOOL_find_replaced || return
  _KIVO_TOOL_enter 0
  _KIVO_TOOL_walk
  _KIVO_TOOL_offer
  [[ ${#COMPREPLY[@]} == 0 ]] || _KIVO_TOOL_quote
}

# Sets _known: what stands on the line of the word at the cursor and is not replaced, without
# quotes. If more than the word is replaced, sets _lead: what stands before the word.
_KIVO_TOOL_find_replaced() {
  local _kept
  # A completion that passes words on (of sudo, say) gives the separator as a word.
  if [[ $_replaced == [=:] && $COMP_WORDBREAKS == *"$_replaced"* ]]; then
    _replaced=
  fi
  _kept=${_line%"$_replaced"}
  [[ $_kept$_replaced == "$_line" ]] || return 1
  _KIVO_TOOL_split "$_line"
  if ((${#_replaced} > ${#_raw})); then
    _lead=${_replaced%"$_raw"}
  else
    _kept=${_raw%"$_replaced"}
    _KIVO_TOOL_split "$_kept"
    _known=$_word
    _KIVO_TOOL_split "$_line"
  fi
}

# Splits a line into words as the shell does. Sets _words: those that are complete, without quotes;
# the last one without quotes, _word, and as typed, _raw; _open: the quote that is open at the end;
# _target: whether the last word is the target of a redirection.
_KIVO_TOOL_split() {
  local _rest=$1 _plain _special=$' \t\n\\"$<>'\'
  _words=() _word='' _raw='' _open='' _target=''
  while [[ -n $_rest ]]; do
    _plain=${_rest%%["$_special"]*}
    _word+=$_plain _raw+=$_plain _rest=${_rest:${#_plain}}
    case $_rest in
      \\*) _word+=${_rest:1:1} _raw+=${_rest:0:2} _rest=${_rest:2} ;;
      [\'\"]* | \$[\'\"]*) _KIVO_TOOL_split_quoted ;;
      \$*) _word+=\$ _raw+=\$ _rest=${_rest:1} ;;
      [\<\>]*)
        [[ -n ${_raw//[[:digit:]]/} ]] || _raw=
        _KIVO_TOOL_end_word
        _rest=${_rest#[<>]} _rest=${_rest#[<>]} _rest=${_rest#[&|]} _target=yes
        ;;
      ?*)
        _KIVO_TOOL_end_word
        _rest=${_rest:1}
        ;;
    esac
  done
}

# Stores a complete word. The target of a redirection is none of the tool's words.
_KIVO_TOOL_end_word() {
  if [[ -n $_raw ]]; then
    [[ -n $_target ]] || _words+=("$_word")
    _target=
  fi
  _word='' _raw=''
}

# Takes a quoted part from the beginning of _rest. Before the quote there may be a "$".
_KIVO_TOOL_split_quoted() {
  local _special=\' _plain
  case $_rest in
    \$\'*) _special=\\\' ;;
    \"* | \$\"*) _special=\\\" ;;
  esac
  [[ $_rest != \$* ]] || _raw+=\$ _rest=${_rest:1}
  _open=${_rest:0:1} _raw+=${_rest:0:1} _rest=${_rest:1}
  while [[ -n $_rest && -n $_open ]]; do
    _plain=${_rest%%["$_special"]*}
    _word+=$_plain _raw+=$_plain _rest=${_rest:${#_plain}}
    case $_rest in
      [\'\"]*) _raw+=$_open _rest=${_rest:1} _open='' ;;
      \\["$_special"\$\`]*) _word+=${_rest:1:1} _raw+=${_rest:0:2} _rest=${_rest:2} ;;
      \\*) _word+=\\ _raw+=\\ _rest=${_rest:1} ;;
    esac
  done
}

# From here on, the options of a command hold as well as those of the tool. Sets _index: a line
# "NAME<tab>OPTION" for each name, with a line end before and after it. The command comes first,
# because its names count where the tool has the same ones.
_KIVO_TOOL_enter() {
  local _of _option _end _name _before
  _scope=$1 _index=$'\n'
  for _of in "$1" 0; do
    _option=${_KIVO_TOOL_scopes[6 * _of + 1]} _end=${_KIVO_TOOL_scopes[6 * _of + 2]}
    _before=$_index
    for ((; _option < _end; _option += 7)); do
      for _name in ${_KIVO_TOOL_options[_option]}; do
        [[ $_before == *$'\n'"$_name"$'\t'* ]] || _index+=$_name$'\t'$_option$'\n'
      done
    done
    [[ $1 != 0 ]] || break
  done
}

# Sets _found: the option that a name stands for, in full or cut short. Line ends and tabs in names
# are written as a control character. Searching is quick, cutting is not: so that comes last.
_KIVO_TOOL_resolve() {
  local _name=${1//[$'\t\n']/$'\2'} _rest=$_index _before _entry
  _found=
  [[ $_name == [!-]* ]] || return
  if [[ $_index == *$'\n'"$_name"$'\t'* ]]; then
    _name+=$'\t'
  elif [[ $_index != *$'\n'"$_name"* || $_index == *$'\n'"$_name"*$'\n'"$_name"* ]]; then
    return
  fi
  _before=${_rest%%$'\n'"$_name"*}
  _rest=${_rest:${#_before}+1}
  _entry=${_rest%%$'\n'*}
  _found=${_entry##*$'\t'}
}

# Walks the words before the cursor's. Sets _typed: the actions given; _deciding: the one that
# decides; _pending: the option that takes the next word; _ended: whether "--" was given; and what
# commands need.
_KIVO_TOOL_walk() {
  local _given
  [[ ${_words[1]} != kivooption=* ]] || unset '_words[1]'  # the parser has taken it away
  for _given in "${_words[@]:1}"; do
    if [[ -n $_ended ]]; then
      break
    elif [[ -n $_pending ]] && _KIVO_TOOL_is_operand "$_given"; then
      _pending=
    else
      _pending=
      case $_given in
        --) _ended=yes ;;
        -) ! _KIVO_TOOL_is_operand - || _KIVO_TOOL_walk_operand - ;;
        -*) _KIVO_TOOL_walk_option "$_given" ;;
        *) _KIVO_TOOL_walk_operand "$_given" ;;
      esac
    fi
  done
}

_KIVO_TOOL_is_operand() {
  [[ $1 != -* || $1 == - && $_KIVO_TOOL_lone_dash == operand ]]
}

_KIVO_TOOL_walk_option() {
  local _name=${1#-} _value=''
  _name=${_name#-}
  [[ $_name != *=* ]] || _value=${_name#*=}
  _KIVO_TOOL_resolve "${_name%%=*}"
  [[ -n $_found ]] || return
  _KIVO_TOOL_type_action "${_KIVO_TOOL_options[_found + 6]}"
  [[ -z ${_KIVO_TOOL_options[_found + 2]} || -n $_value ]] || _pending=$_found
}

# Adds the rank of an action, if there is one, to those given.
_KIVO_TOOL_type_action() {
  [[ -n $1 ]] || return
  _typed+=${_typed:+$'\n'}$1
  [[ -n $_deciding && $_deciding -le $1 ]] || _deciding=$1
}

# An operand may be the next word of a command, in full or cut short. After the first one that is
# not, no command begins.
_KIVO_TOOL_walk_operand() {
  local _next=() _number
  [[ -z $_lost && -z $_operands && ${#_KIVO_TOOL_scopes[@]} != 6 ]] || return
  _KIVO_TOOL_next_words "$1"
  if [[ ${#_next[@]} != 1 ]]; then
    if [[ $_scope == 0 ]]; then _lost=yes; else _operands=yes; fi
    return
  fi
  _way+=${_way:+ }${_next[0]}
  _KIVO_TOOL_enter 0
  for ((_number = 1; 6 * _number < ${#_KIVO_TOOL_scopes[@]}; ++_number)); do
    [[ ${_KIVO_TOOL_scopes[6 * _number]} != "$_way" ]] || _KIVO_TOOL_enter "$_number"
  done
}

# Sets _next: the words with which commands go on from _way and that begin with $1. A word in full
# is the only one.
_KIVO_TOOL_next_words() {
  local _number _words_of _one _seen=' '
  for ((_number = 6; _number < ${#_KIVO_TOOL_scopes[@]}; _number += 6)); do
    _words_of=${_KIVO_TOOL_scopes[_number]}
    _one=${_words_of#"${_way:+$_way }"}
    [[ -z $_way || $_one != "$_words_of" ]] || continue
    _one=${_one%% *}
    [[ $_one == "$1"* && $_seen != *" $_one "* ]] || continue
    _seen+="$_one "
    _next+=("$_one")
    if [[ $_one == "$1" && $2 != all ]]; then
      _next=("$_one")
      return
    fi
  done
}

# Offers what fits the word at the cursor. After a word that fits no command, only names do.
_KIVO_TOOL_offer() {
  local _name
  if [[ -n $_target ]]; then
    _KIVO_TOOL_offer_files '' "$_word" files
  elif [[ -n $_lost ]]; then
    [[ -n $_ended || -n $_pending || $_word != -* || $_word == *=* ]] || _KIVO_TOOL_offer_names
  elif [[ -n $_ended ]]; then
    _KIVO_TOOL_offer_leftover
  elif [[ -n $_pending ]]; then
    [[ $_word == -* ]] || _KIVO_TOOL_offer_values "$_pending" ''
  elif [[ $_word == -*=* ]]; then
    _name=${_word#-}
    _name=${_name#-}
    _KIVO_TOOL_resolve "${_name%%=*}"
    [[ -z $_found ]] || _KIVO_TOOL_offer_values "$_found" "${_word%%=*}="
  elif [[ $_word == -* ]]; then
    _KIVO_TOOL_offer_names
  else
    _KIVO_TOOL_offer_operand
  fi
}

# Offers what fits after "--".
_KIVO_TOOL_offer_leftover() {
  if [[ ${_KIVO_TOOL_scopes[6 * _scope + 4]} == operands ]]; then
    _KIVO_TOOL_find_operand
    [[ -z $_found ]] || ! _KIVO_TOOL_goes "$_found" || _KIVO_TOOL_offer_values "$_found" '' dashes
  else
    _KIVO_TOOL_offer_files '' "$_word" files
  fi
}

# Offers the next words of commands, and what the operand takes. Where there is none, an empty word
# may become an option.
_KIVO_TOOL_offer_operand() {
  local _next=() _one
  [[ -n $_operands ]] || _KIVO_TOOL_next_words "$_word" all
  for _one in "${_next[@]}"; do
    _KIVO_TOOL_add "$_one"
  done
  [[ $_scope != 0 || ${#_KIVO_TOOL_scopes[@]} == 6 ]] || return
  _KIVO_TOOL_find_operand
  if [[ -n $_found ]]; then
    ! _KIVO_TOOL_goes "$_found" || _KIVO_TOOL_offer_values "$_found" ''
  elif [[ -z $_word ]]; then
    _KIVO_TOOL_offer_names
  fi
}

# Sets _found: the operand of the command, or else of the tool.
_KIVO_TOOL_find_operand() {
  _found=${_KIVO_TOOL_scopes[6 * _scope + 3]}
  _found=${_found:-${_KIVO_TOOL_scopes[3]}}
}

# Offers the names of options, with the dashes typed.
_KIVO_TOOL_offer_names() {
  local _of _option _end _dashes=- _style=''
  if [[ $_word == --* ]]; then
    _dashes=--
    [[ $_KIVO_TOOL_dashes != two ]] || _style=long
  elif [[ $_word == '' || $_word == - ]]; then
    [[ $_KIVO_TOOL_dashes != two ]] || _style=both
  fi
  for _of in "$_scope" 0; do
    _option=${_KIVO_TOOL_scopes[6 * _of + 1]} _end=${_KIVO_TOOL_scopes[6 * _of + 2]}
    for ((; _option < _end; _option += 7)); do
      ! _KIVO_TOOL_goes "$_option" || _KIVO_TOOL_offer_names_of "$_option"
    done
    [[ $_scope != 0 ]] || break
  done
}

# Offers the names of an option. A name that the command has too is the command's.
_KIVO_TOOL_offer_names_of() {
  local _name
  for _name in ${_KIVO_TOOL_options[$1 + 1]}; do
    [[ $_name == "${_word#"$_dashes"}"* ]] || continue
    [[ $_scope == 0 || $_index == *$'\n'"$_name"$'\t'"$1"$'\n'* ]] || continue
    case $_style:$_name in
      long:?) ;;
      both:?) _KIVO_TOOL_add "-$_name" ;;
      both:*) _KIVO_TOOL_add "--$_name" ;;
      *) _KIVO_TOOL_add "$_dashes$_name" ;;
    esac
  done
}

# Whether an option may be given with the actions typed.
_KIVO_TOOL_goes() {
  local _with=${_KIVO_TOOL_options[$1 + 5]} _rank=${_KIVO_TOOL_options[$1 + 6]} _set
  [[ -n $_typed ]] || return 0
  if [[ -z $_rank ]]; then
    [[ $_with == '*' || $_with == *" $_deciding "* ]]
    return
  fi
  [[ $'\n'$_typed$'\n' != *$'\n'"$_rank"$'\n'* ]] || return
  for _set in ${_KIVO_TOOL_scopes[6 * _scope + 5]} ${_KIVO_TOOL_scopes[5]}; do
    ! _KIVO_TOOL_holds "$_set" "$_rank" || return 0
  done
  return 1
}

# Whether a set of actions holds all that were typed, and another one.
_KIVO_TOOL_holds() {
  local _one
  for _one in $_typed "$2"; do
    [[ $1 == *" $_one "* ]] || return
  done
}

# Offers values of option $1. $2 is what stands before the value in the word. Values may begin with
# a dash if $3 is given.
_KIVO_TOOL_offer_values() {
  local _separator=${_KIVO_TOOL_options[$1 + 4]} _before=$2 _item=${_word#"$2"} _value
  if [[ -n $_separator && $_item == *"$_separator"* ]]; then
    _item=${_item##*"$_separator"}
    _before=${_word%"$_item"}
  fi
  case ${_KIVO_TOOL_options[$1 + 2]} in
    files | folders) _KIVO_TOOL_offer_files "$_before" "$_item" "${_KIVO_TOOL_options[$1 + 2]}" ;;
    values)
      for _value in ${_KIVO_TOOL_options[$1 + 3]}; do
        [[ $_value == "$_item"* ]] || continue
        [[ $_value != -* || -n $_before || -n $3 ]] || continue
        _KIVO_TOOL_add "$_before$_value"
      done
      ;;
  esac
}

# Offers files or folders that begin with $2; $1 is what stands before in the word. If readline
# replaces nothing before the name of the file, it can do so itself.
_KIVO_TOOL_offer_files() {
  if [[ -n ${COMPREPLY[*]} || -n $_lead || ${#_known} -lt ${#1} ]]; then
    [[ -n $_open ]] || _KIVO_TOOL_list_files "$1" "$2" "$3"
  elif [[ $_raw == *\$*[\(\[]* || $_raw == *\`* ]]; then
    return
  elif [[ $3 == folders ]]; then
    compopt -o filenames -o dirnames 2>/dev/null
  else
    compopt -o default 2>/dev/null
  fi
  [[ $_raw != \~* || $_raw == */* ]] || compopt -o bashdefault 2>/dev/null
}

# Offers the files that patterns find, whatever the user has set for patterns. A pattern that finds
# nothing may be left as it is. Only what has to be changed is: in POSIX mode, any "shopt -s" makes
# bash write other settings into BASHOPTS.
_KIVO_TOOL_list_files() {
  local _file _path=$2 _files=() _unset=() _one
  for _one in failglob nocaseglob; do ! shopt -q "$_one" || _unset+=("$_one"); done
  [[ $2 != \~/* || -z ${HOME-} ]] || _path=$HOME/${2#*/}
  [[ ${#_unset[@]} == 0 ]] || shopt -u "${_unset[@]}"
  set +f
  _files=("$_path"*)
  [[ -n ${_path##*/} ]] || shopt -q dotglob || _files+=("$_path".[!.]*)
  set -f
  [[ ${#_unset[@]} == 0 ]] || shopt -s "${_unset[@]}"
  for _file in "${_files[@]}"; do
    [[ -e $_file || -L $_file ]] || continue
    _one=$2${_file#"$_path"}
    [[ ! -d $_file ]] || _one+=/
    [[ $_one != *[[:cntrl:]]* && ($3 == files || $_one == */) ]] && _KIVO_TOOL_add "$1$_one"
  done
  [[ ${#COMPREPLY[@]} != 1 || ${COMPREPLY[0]} != */ ]] || compopt -o nospace 2>/dev/null
}

# Adds a word to what is offered. Within a quote that is still open there is nothing to offer:
# readline may remove that quote.
_KIVO_TOOL_add() {
  [[ -n $_open || $1 != "$_known"* ]] || COMPREPLY+=("$1")
}

# Makes the words in COMPREPLY what readline inserts. A character is quoted in all of them or in
# none, because readline inserts what they have in common. Brackets, braces and "!" mean something
# to the shell only together with what follows, "~" also after the "=" of an assignment.
_KIVO_TOOL_quote() {
  local _all=$'\n'${COMPREPLY[*]}$'\n' _special=$' \t\\"$`|&;()<>*?'\' _number _quoted
  [[ $_all != *\[*\]* ]] || _special+='['
  [[ $_all != *\{*,*\}* && $_all != *\{*..*\}* ]] || _special+='{'
  [[ $_known != *[\[\{]* ]] || _special+=']}'
  [[ $_set != *H* || $_all != *\![!=$'\n']* ]] || _special+='!'
  [[ ! $_all =~ $'\n'[[:alpha:]_][[:alnum:]_]*[+]?=([^$'\n']*:)?\~ ]] || _special+='~'
  for _number in "${!COMPREPLY[@]}"; do
    _KIVO_TOOL_quote_word "${COMPREPLY[_number]#"$_known"}"
    COMPREPLY[_number]=$_lead$_quoted
  done
  _KIVO_TOOL_part
}

# Sets _quoted: a word with a backslash before each character of _special.
_KIVO_TOOL_quote_word() {
  local _rest=$1 _plain
  _quoted=
  [[ -n $_known || $_rest != [~#]* ]] || _quoted=\\
  while [[ $_rest == *["$_special"]* ]]; do
    _plain=${_rest%%["$_special"]*}
    _rest=${_rest:${#_plain}}
    _quoted+=$_plain\\${_rest:0:1}
    _rest=${_rest:1}
  done
  _quoted+=$_rest
}

# Where the words part after a backslash, readline would insert that backslash alone. So the first
# word gets quotes around the character instead.
_KIVO_TOOL_part() {
  local _same=${COMPREPLY[0]} _one _quote="'"
  [[ $_same == *\\* ]] || return
  for _one in "${COMPREPLY[@]}"; do
    while [[ $_one != "$_same"* ]]; do _same=${_same%?}; done
  done
  _one=${_same##*[!\\]}
  ((${#_one} % 2 == 1)) || return
  _one=${COMPREPLY[0]:${#_same}}
  [[ $_one != \'* ]] || _quote='"'
  COMPREPLY[0]=${_same%\\}$_quote${_one:0:1}$_quote${_one:1}
}
