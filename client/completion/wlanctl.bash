# Completion of wlanctl for bash: wlanctl itself says what can stand there.
_wlanctl() {
    mapfile -t COMPREPLY < <("$1" complete bash -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
}
complete -o default -F _wlanctl wlanctl
