# What bash offers behind "headunit-ctl": options, verbs, the ids of buttons that the unit's screen shows, files.
_headunit_ctl()
{
    local unit=() index=1 current=${COMP_WORDS[COMP_CWORD]}
    while [ "$index" -lt "$COMP_CWORD" ]; do
        case ${COMP_WORDS[index]} in
        --unit) unit=(--unit "${COMP_WORDS[index + 1]}") && index=$((index + 2)) ;;
        -*) index=$((index + 1)) ;;
        *) break ;;
        esac
    done
    COMPREPLY=()
    if [ "$index" -gt "$COMP_CWORD" ]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    elif [ "$index" -eq "$COMP_CWORD" ] && [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" --help 2>/dev/null |
            grep --only-matching -e '--[a-z][a-z-]*')" -- "$current")
    else
        mapfile -t COMPREPLY < <("${COMP_WORDS[0]}" "${unit[@]}" \
            --complete "${COMP_WORDS[*]:index:COMP_CWORD-index+1}" 2>/dev/null)
    fi
}
complete -o default -F _headunit_ctl headunit-ctl
