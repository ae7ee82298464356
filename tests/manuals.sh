#!/bin/sh
# manuals.sh BUILD: every command and option of --help, and every variable that is read, stands in bold in a manual.
cd "$(dirname "$0")/.." || exit 2
failed=0
holds() { # MANUAL WORD...
    page=docs/man/$1.scd
    shift
    for word in "$@"; do
        grep -qF -e "*$word*" "$page" || { echo "$page lacks $word" && failed=1; }
    done
}
options() { "$@" --help | sed -nE 's/^ +((-[a-zA-Z],? ?)?--[a-z-]+).*/\1/p' | grep -oE -e '--[a-z-]+'; }
variables() { grep -rhoE '(getenv|_directory)\("[A-Za-z_]+|\$[a-z_]+dir/' "$@" | sed 's/.*["$]//; s,/,,' | sort -u; }

commands=$("$1/bin/wlanctl" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z-]*\) .*/\1/p')
[ "$(echo "$commands" | wc -l)" -gt 8 ] && [ "$(options "$1/bin/wlanctl" | wc -l)" -gt 8 ] && options "$1/bin/wlan-configd" | grep -q . && variables src | grep -q '^STATE_DIRECTORY$' || failed=1
# shellcheck disable=SC2046,SC2086  # words
{
    holds wlanctl.1 $commands $(options "$1/bin/wlanctl") $(variables client)
    for command in $commands; do holds wlanctl.1 $(options "$1/bin/wlanctl" "$command"); done
    holds wlan-configd.8 $(options "$1/bin/wlan-configd") $(variables src)
    holds wlan-configd-sim.1 $(variables sim/*.cpp)
}
exit $failed
