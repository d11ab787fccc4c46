# What bash offers behind the programs of the simulated unit but headunit-ctl: the options that their help tells of, and
# files.
_headunit()
{
    local current=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    [[ $current == -* ]] || return 0
    mapfile -t COMPREPLY < <(compgen -W "$("${COMP_WORDS[0]}" --help 2>/dev/null |
        grep --only-matching -e '--[a-z][a-z-]*' | sort --unique)" -- "$current")
}
complete -o default -F _headunit headunit headunit-panel headunit-sweep make-gps-package make-update-package
