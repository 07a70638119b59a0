_corvane() {
    local word=${COMP_WORDS[COMP_CWORD]}
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '--program-dir --help --version' -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
    fi
}
complete -F _corvane corvane
