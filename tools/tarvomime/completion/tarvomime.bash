# SPDX-License-Identifier: MIT
# Completion of tarvomime's command line for bash: the tool itself knows what fits.
_tarvomime() {
    local word reply words=()
    # bash cuts "--part=1" into three words.
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do
        if ((${#words[@]})) && [[ $word == = || ${words[-1]} == --*= ]]; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
    done
    # They are as they were typed: "~" and backslashes are the shell's.
    words=("${words[@]/#\~\//$HOME/}")
    words=("${words[@]//\\/}")
    mapfile -t reply < <("${1/#\~\//$HOME/}" __complete "${words[@]}" 2>/dev/null)
    case ${reply[0]} in
        :files) compopt -o default ;;
        :folders) compopt -o dirnames ;;
    esac
    COMPREPLY=()
    for word in "${reply[@]:1}"; do
        word=${word%%$'\t'*}
        [[ ${words[-1]} == --*=* ]] && word=${word#*=}
        COMPREPLY+=("$word")
    done
}
complete -F _tarvomime tarvomime
