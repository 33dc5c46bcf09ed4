#compdef KIVO_TOOL
#
# Completes the command line of KIVO_TOOL in zsh. Written by kivo-describe; do not edit.
#
# Put this file as _KIVO_TOOL into a folder of fpath, or read it with "source" after compinit.
# Completing starts no process, and neither typed words nor texts of KIVO_TOOL are run as code.
# The functions share variables: those that "complete" and "decide" declare are local to them and
# visible in the functions that they call. At the end stands what KIVO_TOOL accepts.

# Called by zsh for each TAB, with the options that its completion system sets. Quotes are removed
# here and candidates are added here because "decide" changes options.
_kivo:KIVO_TOOL:complete() {
  local word head= value_kind= separator= result=1
  local -a typed matches displays next_words next_displays expl suffix
  (( CURRENT > 2 )) && typed=("${(@Q)words[2,CURRENT-1]}")
  word=${(Q)${:-$compstate[quote]$PREFIX$compstate[quote]}}
  # Zsh would put the blank after a word before the quote that stands at its end.
  [[ -n $QISUFFIX ]] && suffix=(-S '')
  _kivo:KIVO_TOOL:decide
  if (( $#next_words )); then
    _wanted commands expl command \
      compadd "${suffix[@]}" -l -d next_displays -a next_words && result=0
  fi
  case $value_kind in
    names)
      _wanted options expl option compadd "${suffix[@]}" -l -d displays -a matches && result=0
      ;;
    values) _wanted values expl value compadd "${suffix[@]}" -d displays -a matches && result=0 ;;
    files | folders) _kivo:KIVO_TOOL:files && result=0 ;;
  esac
  return $result
}

# Adds files. What stands before them in the word is kept: an option's name with its "=", and the
# earlier items of a list. Words with an unquoted dollar sign, parenthesis or backquote are left
# alone, but for "$NAME/": _files would expand them, and thereby run code.
_kivo:KIVO_TOOL:files() {
  local plain kept=$IPREFIX
  [[ $head == -*=* ]] && compset -P 1 '*='
  if [[ -n $separator ]]; then
    compset -P "*${(b)${(q)separator}}" || compset -P "*${(b)separator}"
  fi
  kept=${IPREFIX#$kept}
  [[ ${(Q)${:-$compstate[quote]$kept$compstate[quote]}} == "$head" ]] || return 1
  plain=${PREFIX//\\?/}
  plain=${plain//\$[[:alpha:]_][[:alnum:]_]#\//}
  [[ $plain == *[$'\x24\x28\x60']* ]] && return 1
  case $value_kind in
    folders) _files -/ "${suffix[@]}" ;;
    *) _files "${suffix[@]}" ;;
  esac
}

# Decides what is offered for the word before the cursor after the typed words.
_kivo:KIVO_TOOL:decide() {
  emulate -L zsh
  # The command that was typed, and what follows from the typed words.
  local two_dashes=0 lone_dash=0 so_far= scope=0 lost=0 settled=0 ended=0 waiting=0
  local deciding= found=0
  local -a command_words command_summaries actions companions
  # The options, in order: option number i has an element i in each of these arrays.
  local -a kinds separators ranks goes_with texts first_names offered_names first_values last_values
  # Their names and values, and for each name the number of its option.
  local -a names owners values taken together
  local operand=0 leftovers=
  _kivo:KIVO_TOOL:tool
  (( settled = ! $#command_words ))
  _kivo:KIVO_TOOL:load 0
  _kivo:KIVO_TOOL:walk
  _kivo:KIVO_TOOL:weigh_actions
  _kivo:KIVO_TOOL:choose
}

# Declares the options of command number $1 and those of the tool; 0 is the tool without a command.
_kivo:KIVO_TOOL:load() {
  scope=$1 operand=0 leftovers= taken=()
  kinds=() separators=() ranks=() goes_with=() texts=()
  names=() owners=() values=() together=()
  first_names=() offered_names=() first_values=() last_values=()
  if (( scope )); then
    _kivo:KIVO_TOOL:scope_$scope
    taken=("${names[@]}")
  fi
  _kivo:KIVO_TOOL:scope_0
}

# Declares an option:
#   $1 "operand" if it is positional, or "option"
#   $2 what is offered for its value: values, files, folders, nothing; "none" if it takes no value
#   $3 the character between values, or nothing
#   $4 the rank of an action, or nothing: the smallest of the typed ranks decides
#   $5 the ranks of the actions that it goes with; "*" for all
#   $6 its description
#   $7 the number of its names that are offered; $8 the number of all its names
# then the names, those that are offered first, then the values.
_kivo:KIVO_TOOL:option() {
  local -a offered rest
  offered=("${@[9,8+$7]}") rest=("${@[9+$7,8+$8]}")
  if (( $#taken )); then
    offered=("${(@)offered:|taken}") rest=("${(@)rest:|taken}")
  fi
  first_names+=($#names) offered_names+=($#offered)
  names+=("${offered[@]}" "${rest[@]}")
  kinds+=("$2") separators+=("$3") ranks+=("$4") goes_with+=("$5") texts+=("$6")
  repeat $#offered+$#rest; do owners+=($#kinds); done
  first_values+=($#values)
  values+=("${@[9+$8,-1]}")
  last_values+=($#values)
  [[ $1 == operand ]] && (( ! operand )) && operand=$#kinds
}

# Walks the typed words as the parser does.
_kivo:KIVO_TOOL:walk() {
  local text
  [[ ${typed[1]} == kivooption=* ]] && shift typed
  for text in "${typed[@]}"; do
    if (( waiting )); then
      waiting=0
      [[ $text != -* ]] && continue
      [[ $text == - ]] && (( lone_dash )) && continue
    fi
    case $text in
      --) ended=1; return ;;
      -) (( lone_dash )) && _kivo:KIVO_TOOL:operand_word - ;;
      -*) _kivo:KIVO_TOOL:option_word "$text" ;;
      *) _kivo:KIVO_TOOL:operand_word "$text" ;;
    esac
  done
}

# Sets "found" to the number of the option that the name $1 stands for, in full or cut short, or
# to 0 if there is none or there are several.
_kivo:KIVO_TOOL:find() {
  local -a begun
  local place
  found=0
  [[ -z $1 || $1 == -* ]] && return
  place=${names[(ie)$1]}
  if (( place > $#names )); then
    begun=("${(@M)names:#$1*}")
    (( $#begun == 1 )) || return
    place=${names[(ie)${begun[1]}]}
  fi
  found=$owners[place]
}

# Walks a typed word that begins with a dash.
_kivo:KIVO_TOOL:option_word() {
  local name=${${1#-}#-}
  _kivo:KIVO_TOOL:find "${name%%=*}"
  (( found )) || return
  [[ -n $ranks[found] ]] && actions+=($ranks[found])
  [[ $kinds[found] == none ]] && return
  [[ $1 != *=* || -z ${1#*=} ]] && waiting=$found
}

# Sets "following" to the words that go on from the words of commands typed so far.
_kivo:KIVO_TOOL:follow() {
  local start=${so_far:+$so_far }
  following=("${(@M)command_words:#$start?*}")
  following=("${(@)following#$start}")
  following=("${(@)following%% *}")
  following=("${(@u)following}")
}

# Walks a typed word that is an operand, or a word of a command in full or cut short.
_kivo:KIVO_TOOL:operand_word() {
  local -a following begun
  local place
  (( settled || lost )) && return
  _kivo:KIVO_TOOL:follow
  begun=("${(@M)following:#$1*}")
  (( ${following[(Ie)$1]} )) && begun=("$1")
  if (( $#begun == 1 )); then
    so_far+=${so_far:+ }${begun[1]}
    place=${command_words[(Ie)$so_far]}
    _kivo:KIVO_TOOL:load $place  # none is 0
    _kivo:KIVO_TOOL:follow
    (( settled = ! $#following ))
  elif (( scope )); then
    settled=1
  else
    lost=1
  fi
}

# Finds the action that decides and, in "companions", those that may be typed beside the typed.
_kivo:KIVO_TOOL:weigh_actions() {
  local group action
  local -a members
  (( $#actions )) || return
  deciding=${${(n)actions}[1]}
  for group in "${together[@]}"; do
    members=("${(@s: :)group}")
    for action in $actions; do
      (( ${members[(Ie)$action]} )) || continue 2
    done
    companions+=($members)
  done
  companions=(${companions:|actions})
}

# Whether option number $1 goes with the typed actions.
_kivo:KIVO_TOOL:goes() {
  (( $#actions )) || return 0
  if [[ -n $ranks[$1] ]]; then
    (( ${companions[(Ie)$ranks[$1]]} ))
  else
    [[ $goes_with[$1] == '*' || " $goes_with[$1] " == *" $deciding "* ]]
  fi
}

# Chooses by the first rule that fits.
_kivo:KIVO_TOOL:choose() {
  if (( lost )); then
    if (( ! ended && ! waiting )) && [[ $word == -* && $word != *=* ]]; then
      _kivo:KIVO_TOOL:offer_names
    fi
  elif (( ended && leftovers )); then
    _kivo:KIVO_TOOL:offer_operand
  elif (( ended )); then
    value_kind=files
  elif (( waiting )); then
    [[ $word == -* ]] || _kivo:KIVO_TOOL:offer_values $waiting
  elif [[ $word == -*=* ]]; then
    head=${${word#-}#-}
    _kivo:KIVO_TOOL:find "${head%%=*}"
    head=${word%%=*}=
    (( found )) && _kivo:KIVO_TOOL:offer_values $found
  elif [[ $word == -* ]]; then
    _kivo:KIVO_TOOL:offer_names
  else
    (( settled )) || _kivo:KIVO_TOOL:offer_next_words
    if (( scope || ! $#command_words )); then
      _kivo:KIVO_TOOL:offer_operand
    fi
  fi
}

# Offers the values of the operand or, for an empty word, names if there is no operand at all.
_kivo:KIVO_TOOL:offer_operand() {
  if (( operand )); then
    _kivo:KIVO_TOOL:goes $operand && _kivo:KIVO_TOOL:offer_values $operand
  elif [[ -z $word ]] && (( ! ended )); then
    _kivo:KIVO_TOOL:offer_names
  fi
}

# Offers the values of option number $1 after "head", and of a list only those of the last item.
_kivo:KIVO_TOOL:offer_values() {
  local last=${word#$head}
  value_kind=$kinds[$1]
  if [[ -n $separators[$1] && $last == *$separators[$1]* ]]; then
    separator=$separators[$1]
    head+=${last%$separator*}$separator
  fi
  displays=("${(@)values[first_values[$1]+1,last_values[$1]]}")
  [[ -z $head ]] && (( ! ended )) && displays=("${(@)displays:#-*}")
  matches=("${(@)displays/#/$head}")
}

# Offers the names of the options that go, with one dash or two as the word has them.
_kivo:KIVO_TOOL:offer_names() {
  local i name
  local -a explained lines
  value_kind=names
  for (( i = 1; i <= $#kinds; i++ )); do
    (( offered_names[i] )) && _kivo:KIVO_TOOL:goes $i || continue
    for name in "${(@)names[first_names[i]+1,first_names[i]+offered_names[i]]}"; do
      case $two_dashes:$word in
        1:--*) (( $#name > 1 )) && name=--$name || continue ;;
        1: | 1:-) (( $#name > 1 )) && name=--$name || name=-$name ;;
        0:--*) name=--$name ;;
        *) name=-$name ;;
      esac
      matches+=("$name") explained+=("$texts[i]")
    done
  done
  _kivo:KIVO_TOOL:explain "${matches[@]}"
  displays=("${lines[@]}")
}

# Offers the next words of commands, with the summary where a word completes a command.
_kivo:KIVO_TOOL:offer_next_words() {
  local -a following explained lines
  local text place
  _kivo:KIVO_TOOL:follow
  for text in "${following[@]}"; do
    place=${command_words[(Ie)${so_far:+$so_far }$text]}
    explained+=("${command_summaries[place]}")
  done
  next_words=("${following[@]}")
  _kivo:KIVO_TOOL:explain "${next_words[@]}"
  next_displays=("${lines[@]}")
}

# Sets "lines" to the arguments with the texts in "explained" beside them.
_kivo:KIVO_TOOL:explain() {
  local word text width=0 i
  lines=()
  for word in "$@"; do
    (( width = $#word > width ? $#word : width ))
  done
  for (( i = 1; i <= $#; i++ )); do
    text=${explained[i]:+${(r:width:)argv[i]}  -- ${explained[i]}}
    lines+=("${text:-${argv[i]}}")
  done
}

# KIVO_DATA

# As a file of fpath, this is run as the body of a function; otherwise, zsh reads it.
# The slice means the first element with and without ksh_arrays.
if [[ ${+compstate} == 1 && "${funcstack[@]:0:1}" == _KIVO_TOOL ]]; then
  _kivo:KIVO_TOOL:complete "$@"
else
  compdef _kivo:KIVO_TOOL:complete KIVO_TOOL
fi
