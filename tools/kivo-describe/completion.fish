# Completes the command line of KIVO_NAME in fish. Written by kivo-describe; do not edit.
#
# Put this file as KIVO_NAME.fish into a folder of fish_complete_path, or read it with "source".
#
# The words before the cursor are walked as the tool walks them; then the first rule that fits
# decides what is offered, and fish compares that with the typed word. Nothing that is typed is
# evaluated, and no process is started: command substitutions hold functions and builtins alone.
# fish quotes what it inserts, but for a "~" at the beginning of a word: type a quote before it.
#
# The functions are fixed. The data after them are these lists. An option is known by its place in
# the first list. Scope 0 is the tool itself, scope 1 its first command.
#   _KIVO_TOOL_options       KIND<tab>GOES<tab>SEPARATOR of each option
#   _KIVO_TOOL_values_N      the values that are offered for option N
#   _KIVO_TOOL_entries_S     NAME<tab>OPTION<tab>GOES<tab>DESCRIPTION of each name in scope S
#   _KIVO_TOOL_together_S    the sets of actions that may be typed together: " 0 2 "
#   _KIVO_TOOL_operand_S     the option that takes operands, or nothing
#   _KIVO_TOOL_leftovers_S   what words after "--" are: "operands" or "files"
#   _KIVO_TOOL_commands      the words of each command
#   _KIVO_TOOL_summaries     the summary of each command
#   _KIVO_TOOL_dashes        "two" if names of two characters and more are offered with two dashes
#   _KIVO_TOOL_lone_dash     "operand" if a word "-" is an operand or a value
# KIND is "none" if the option takes no value. Otherwise it is what is offered for the value:
# "values", "files", "folders" or "nothing". GOES holds the ranks of the actions that an option goes
# with (" 0 2 "), or "*" for all. An action has "@" and its own rank, and a name that is not offered
# has "-". The smallest rank typed decides.
# In names and in typed words, the characters 1 and 2 stand for line end and tab.

# Writes the candidates, or returns whether fish itself has to add files.
#   $wanted  "candidates" or "files"
# The functions that do not shadow scopes share these variables:
#   words    the words between the tool's name and the cursor's word, without quotes
#   word     the word at the cursor, without quotes
#   scope    the command that was typed, or 0
#   so_far   the words of commands that were typed, a blank after each
#   lost     set when a word fits no command
#   settled  set when a command has got an operand: no longer command can follow
#   entries  the names that can be typed here
#   actions  the ranks of the typed actions
#   taker    the option that takes the next word as its value
#   ended    set after "--"
#   found    the option that a name stands for
#   offered  what is offered: a KIND or "names"
#   option   the option whose values are offered
#   stem     what stands in the word before the value, or before the last item of a list
#   item     the value, or the last item
#   is_list_item  set when other items stand before it
function _KIVO_TOOL_complete --argument-names wanted
    set -l words
    set -l word ''
    set -l scope 0
    set -l so_far ''
    set -l lost
    set -l settled
    set -l entries $_KIVO_TOOL_entries_0
    set -l actions
    set -l taker
    set -l ended
    set -l found
    set -l offered nothing
    set -l option
    set -l stem ''
    set -l item ''
    set -l is_list_item
    _KIVO_TOOL_read_line
    _KIVO_TOOL_walk
    _KIVO_TOOL_choose
    if test $wanted = files
        test $offered = files; and not set -q is_list_item[1]
        return
    end
    if string match -qr -- '[*?]' $word
        # fish takes these characters for a pattern, and every candidate that fits for complete.
        _KIVO_TOOL_offer | string match -r -- '^'(string escape --style=regex -- $word)'.*'
    else
        _KIVO_TOOL_offer
    end
end

# Sets "words" and "word" from the command line. A token is a redirection with its target, or runs
# of plain characters, quoted parts and parentheses with tokens in them.
function _KIVO_TOOL_read_line --no-scope-shadowing
    set -l plain '[^\s\'"\\\\<>()]|\\\\.'
    set -l quoted '\'(?:[^\'\\\\]|\\\\.)*+\'|"(?:[^"\\\\]|\\\\.)*+"'
    set -l token '(?:'$plain'|'$quoted'|\\((?:(?0)|[\\s;&|])*+\\))++'
    set -l redirection '(?:\\d*|&)[<>][>?&]*\\s*(?0)'
    set -l line (commandline -pc | string join \x01)
    set -l current (commandline -ct | string join \x01)
    test -z "$current"; or set line (string sub --end=-(string length -- $current) -- $line)
    set line (string replace -ra -- '\\\\\x01' '' $line)
    set -l tokens (string match -ra -- "$redirection|$token" $line 2>/dev/null)
    set tokens (string match -rv -- '^(?:\\d*|&)[<>]' $tokens)
    for one in $tokens[2..]
        set -a words (_KIVO_TOOL_unquoted "$one")
    end
    set word (_KIVO_TOOL_unquoted "$current")
end

# Writes a typed word without quotes. The last quote may be open.
function _KIVO_TOOL_unquoted --argument-names typed
    for quote in '' '"' "'"
        set -l plain (string unescape -- $typed$quote | string join \x01)
        if set -q plain[1]
            string replace -a -- \t \x02 $plain
            return
        end
    end
    string replace -a -- \t \x02 $typed
end

# Walks the words before the cursor's.
function _KIVO_TOOL_walk --no-scope-shadowing
    string match -q -- 'kivooption=*' $words[1]; and set -e words[1]
    for one in $words
        set -l is_dashed
        string match -q -- '-*' $one; and set is_dashed yes
        test "$one" = -; and test $_KIVO_TOOL_lone_dash = operand; and set -e is_dashed[1]
        if set -q taker[1]; and not set -q is_dashed[1]
            set taker
            continue
        end
        set taker
        if test "$one" = --
            set ended yes
            return
        else if set -q is_dashed[1]
            _KIVO_TOOL_walk_option $one
        else
            _KIVO_TOOL_walk_operand $one
        end
    end
end

# Walks a word that begins with a dash.
function _KIVO_TOOL_walk_option --no-scope-shadowing
    set -l parts (string split -m 1 -- = $argv[1])
    _KIVO_TOOL_resolve $parts[1]
    set -q found[1]; or return
    set -l fields (string split -- \t $_KIVO_TOOL_options[$found])
    string match -q -- '@*' $fields[2]; and set -a actions (string sub -s 2 -- $fields[2])
    test $fields[1] = none; or test -n "$parts[2]"; or set taker $found
end

# Sets "found" to the option that a name with its dashes stands for, in full or cut short, and to
# nothing if there is none or there are several. Of options with the same name, the first counts.
function _KIVO_TOOL_resolve --no-scope-shadowing
    set -l name (string replace -r -- '^--?' '' $argv[1])
    set found
    string match -qr -- '^[^-]' $name; or return
    set name (string escape --style=regex -- $name)
    set found (string replace -rf -- "^$name\t(\d+)\t.*" '$1' $entries)[1]
    set -q found[1]; and return
    set found (string replace -rf -- "^$name""[^\t]*\t(\d+)\t.*" '$1' $entries)
    test (count $found) = 1; or set found
end

# Walks a word that is an operand, or the next word of a command in full or cut short.
function _KIVO_TOOL_walk_operand --no-scope-shadowing
    set -q lost[1]; or set -q settled[1]; or not set -q _KIVO_TOOL_commands[1]; and return
    set -l next (_KIVO_TOOL_next_words $so_far)
    if contains -- $argv[1] $next
        set next $argv[1]
    else
        set next (string match -r -- '^'(string escape --style=regex -- $argv[1])'.*' $next)
    end
    if test (count $next) = 1
        set -l command (contains -i -- $so_far$next $_KIVO_TOOL_commands)
        set so_far "$so_far$next "
        set -q command[1]; or set command 0
        _KIVO_TOOL_enter $command
    else if test $scope = 0
        set lost yes
    else
        set settled yes
    end
end

# Writes the words with which commands go on from the words $so_far, each once.
function _KIVO_TOOL_next_words --argument-names so_far
    set -l start (string escape --style=regex -- $so_far)
    set -l seen
    for next in (string replace -rf -- "^$start([^ ]+).*" '$1' $_KIVO_TOOL_commands)
        contains -- $next $seen; or set -a seen $next
    end
    string join \n -- $seen
end

# Goes on with the options of a command and those of the tool. Where both have a name, that of the
# command counts.
function _KIVO_TOOL_enter --no-scope-shadowing
    set scope $argv[1]
    set -l list _KIVO_TOOL_entries_$scope
    set entries $$list
    set -l others $_KIVO_TOOL_entries_0
    set -l names (string replace -r -- '\t.*' '' $others)
    for name in (string replace -r -- '\t.*' '' $entries)
        while set -l place (contains -i -- $name $names)
            set -e names[$place]
            set -e others[$place]
        end
    end
    set -a entries $others
end

# Sets "offered" by the first rule that fits.
function _KIVO_TOOL_choose --no-scope-shadowing
    set -l leftovers _KIVO_TOOL_leftovers_$scope
    if set -q lost[1]
        set -q ended[1]; or set -q taker[1]; or not string match -qr -- '^-[^=]*$' $word
        or set offered names
    else if set -q ended[1]
        set offered files
        test $$leftovers = files; or _KIVO_TOOL_choose_operand
    else if set -q taker[1]
        string match -q -- '-*' $word; or _KIVO_TOOL_choose_value $taker
    else if string match -qr -- '^-.*=' $word
        set -l name (string replace -r -- '=.*' '' $word)
        _KIVO_TOOL_resolve $name
        set stem $name=
        set -q found[1]; and _KIVO_TOOL_choose_value $found
    else if string match -q -- '-*' $word
        set offered names
    else if test $scope != 0; or not set -q _KIVO_TOOL_commands[1]
        _KIVO_TOOL_choose_operand
    end
end

# Offers what the operand takes. Where there is none, an empty word may become an option.
function _KIVO_TOOL_choose_operand --no-scope-shadowing
    set -l operand _KIVO_TOOL_operand_$scope
    set offered nothing
    set -q "$operand"[1]; or set operand _KIVO_TOOL_operand_0
    if set -q "$operand"[1]
        set -l fields (string split -- \t $_KIVO_TOOL_options[$$operand])
        string match -qr -- '^'(_KIVO_TOOL_goes_pattern)'$' $fields[2]
        and _KIVO_TOOL_choose_value $$operand
    else if test -z "$word"; and not set -q ended[1]
        set offered names
    end
end

# Offers the values of an option. Of a list, only the last item is completed.
function _KIVO_TOOL_choose_value --no-scope-shadowing
    set option $argv[1]
    set -l fields (string split -- \t $_KIVO_TOOL_options[$option])
    set offered $fields[1]
    test $offered != none; or set offered nothing
    set item (string sub -s (math 1 + (string length -- $stem)) -- $word)
    if test -n "$fields[3]"
        set -l parts (string split -r -m 1 -- $fields[3] $item)
        if set -q parts[2]
            set stem $stem$parts[1]$fields[3]
            set item $parts[2]
            set is_list_item yes
        end
    end
end

# Writes what is offered, and next words of commands beside the operand.
function _KIVO_TOOL_offer --no-scope-shadowing
    switch $offered
        case names
            _KIVO_TOOL_offer_names
        case values
            set -l list _KIVO_TOOL_values_$option
            set list $$list
            test -n "$stem"; or set -q ended[1]; or set list (string match -v -- '-*' $list)
            string join \n -- $stem$list
        case files folders
            _KIVO_TOOL_offer_paths
    end
    if string match -qr -- '^(?!-)' $word
        set -q ended[1]; or set -q taker[1]; or set -q lost[1]; or set -q settled[1]
        or _KIVO_TOOL_offer_next_words
    end
end

# Writes the next words of commands, with the summary where a word completes a command.
function _KIVO_TOOL_offer_next_words --no-scope-shadowing
    for next in (_KIVO_TOOL_next_words $so_far)
        set -l command (contains -i -- $so_far$next $_KIVO_TOOL_commands)
        set -q command[1]; and set next $next\t$_KIVO_TOOL_summaries[$command]
        string join \n -- $next
    end
end

# Writes the folders, or the files for the last item of a list. To all other words, fish adds files
# itself. Here it is asked to complete an empty command, which has no completions but files.
function _KIVO_TOOL_offer_paths --no-scope-shadowing
    test $offered = folders; or set -q is_list_item[1]; or return
    # Without quotes before it, the path stays as it is typed: "~/" and "$HOME/" keep their meaning.
    # Of a pattern fish would offer the pattern itself.
    set -l start '^'(string escape --style=regex -- $stem)
    set -l typed (commandline -ct | string collect | string replace -rf -- $start '')
    set -q typed[1]; and not string match -qr -- '[*?]' $item
    or set typed (string escape -n -- $item)
    set -l paths (complete -C "'' $typed")
    test $offered = files; or set paths (string match -- '*/' $paths)
    string join \n -- $stem$paths
end

# Writes the names of the options that go, with the dashes typed.
function _KIVO_TOOL_offer_names --no-scope-shadowing
    set -l rest '\t\d+\t'(_KIVO_TOOL_goes_pattern)'\t(.*)'
    set -l styles '-$1'
    set -l names '[^\t]+'
    if string match -q -- '--*' $word
        set styles '--$1'
        test $_KIVO_TOOL_dashes != two; or set names '[^\t]{2,}'
    else if test $_KIVO_TOOL_dashes = two; and contains -- "$word" '' -
        set styles '-$1' '--$1'
        set names '[^\t]' '[^\t]{2,}'
    end
    for i in 1 2
        set -q names[$i]
        and string replace -rf -- "^($names[$i])$rest\$" $styles[$i]\t'$2' $entries
    end
end

# Writes a pattern for what GOES with the typed actions.
function _KIVO_TOOL_goes_pattern --no-scope-shadowing
    if not set -q actions[1]
        echo '(?!-\t)[^\t]*'
        return
    end
    set -l deciding $actions[1]
    for rank in $actions
        test $rank -lt $deciding; and set deciding $rank
    end
    set -l companions
    for list in _KIVO_TOOL_together_(string split ' ' -- $scope' 0')
        for group in $$list
            set -l ranks (string split -n ' ' -- $group)
            for rank in $actions
                contains $rank $ranks; or set ranks
            end
            set -a companions $ranks
        end
    end
    for rank in $actions
        set companions (string match -v -- $rank $companions)
    end
    set companions (string join '|' -- $companions)
    echo "(?:\*| (?:\d+ )*$deciding (?:\d+ )*|@(?:$companions))"
end

# Declares the tool or a command: its number, words, summary, leftovers, operand ('' for none) and
# the sets of actions that may be typed together.
function _KIVO_TOOL_scope --argument-names scope words summary leftovers operand
    set -g _KIVO_TOOL_entries_$scope
    set -g _KIVO_TOOL_leftovers_$scope $leftovers
    set -g _KIVO_TOOL_operand_$scope (string match -v -- '' $operand)
    set -g _KIVO_TOOL_together_$scope $argv[6..]
    test $scope = 0; and return
    set -ga _KIVO_TOOL_commands $words
    set -ga _KIVO_TOOL_summaries $summary
end

# Declares an option of a scope. Its names follow ("+NAME" if offered, ".NAME" if not), then "="
# and its values.
function _KIVO_TOOL_option --argument-names scope kind goes separator description
    set -ga _KIVO_TOOL_options $kind\t$goes\t$separator
    set -l option (count $_KIVO_TOOL_options)
    set -l values $argv[6..]
    set -l end (contains -i -- = $values)
    set -l names $values[1..$end]
    set -e values[1..$end]
    set -g _KIVO_TOOL_values_$option $values
    set -ga _KIVO_TOOL_entries_$scope \
        (string replace -rf -- '^[+](.+)' '$1' $names)\t$option\t$goes\t$description \
        (string replace -rf -- '^[.](.+)' '$1' $names)\t$option\t-\t
end

# KIVO_DATA

complete -e -c KIVO_NAME
complete -c KIVO_NAME -f -a '(_KIVO_TOOL_complete candidates)'
complete -c KIVO_NAME -F -n '_KIVO_TOOL_complete files'
