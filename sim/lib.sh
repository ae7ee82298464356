# shellcheck shell=sh
# What the simulated scripts and tools share: the log, the faults, and how the two bands are named.

: "${ZAV_SIM_DIR:?names no state directory}"

# event KIND NAME ARGUMENT...: tells the log and carries out the fault that is set for it. A fault is named
# after the first words of the event, at most four, the most specific one first: script.zv_host.sh.load.24g
event() {
    line=$*
    case $line in *[!\ -~]*) line=$(printf '%s' "$line" | LC_ALL=C tr -c ' -~' '?') ;; esac
    printf '%s\n' "$line" >>"$ZAV_SIM_DIR/log"
    for any in "$ZAV_SIM_DIR"/faults/*; do
        [ "$any" != "$ZAV_SIM_DIR/faults/*" ] || return 0 # not whether it is there: it may go meanwhile
        break
    done
    fault_name=
    fault_names=
    for word in "$1" "${2-}" "${3-}" "${4-}"; do
        case $word in '' | *[!A-Za-z0-9._-]*) break ;; esac
        fault_name=${fault_name:+$fault_name.}$word
        fault_names="$fault_name $fault_names"
    done
    if value=$(fault delay); then
        sleep "$((value / 1000)).$(printf '%03d' "$((value % 1000))")"
    fi
    while fault hold >/dev/null 2>&1; do sleep 0.02; done
    if value=$(fault signal); then kill -s "$value" "$$"; fi
    if value=$(fault fail); then exit "$value"; fi
    if fault answer; then exit 0; fi
}

# fault ACTION: prints the fault file of the current event; fails if there is none.
fault() {
    for name in $fault_names; do
        if [ -f "$ZAV_SIM_DIR/faults/$name.$1" ]; then
            cat "$ZAV_SIM_DIR/faults/$name.$1"
            return 0
        fi
    done
    return 1
}

die() {
    echo "${0##*/}: $*" >&2
    exit 1
}

# bands dual|all|24g|5g: prints the names of the bands.
bands() {
    case ${1-} in
    dual | all) echo "24g 5g" ;;
    24g | 5g) echo "$1" ;;
    *) return 1 ;;
    esac
}

interface() { # BAND NUMBER, from 0
    case $1 in
    24g) echo "zvi0$2" ;;
    *) echo "zv0$2" ;;
    esac
}

settings_of() { # BAND
    case $1 in
    24g) echo "$ZAV_SIM_DIR/settings/ZAV75024g.dat" ;;
    *) echo "$ZAV_SIM_DIR/settings/ZAV750.dat" ;;
    esac
}

setting() { # BAND KEY
    sed -n "1d; s/^$2=//p" "$(settings_of "$1")" | head -n 1
}
