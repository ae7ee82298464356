#!/bin/sh
# The host control script of the simulated platform: zv_host.sh VERB BAND, where BAND is dual, 24g or 5g.
# The driver learns the settings when its interfaces are initialised or restarted, and only then.

# shellcheck source=/dev/null
. "${0%/*}/../lib.sh"

present() { # BAND
    [ -e "$ZAV_SIM_DIR/interfaces/$(interface "$1" 0)" ]
}

# Tells the simulated driver what the settings of the band say now: by one program, for a start of each takes its time.
apply() { # BAND
    count_bsses "$1"
    LC_ALL=C band=$1 interface=$(interface "$1" '') count=$count awk '
        NR > 1 && (at = index($0, "=")) && !((key = substr($0, 1, at - 1)) in value) { value[key] = substr($0, at + 1) }
        END {
            shown = ENVIRON["ZAV_SIM_DIR"] "/" ENVIRON["band"] "/show/"
            channel = value["Channel"]
            print "\t" (channel != "0" ? channel : ENVIRON["band"] == "24g" ? 6 : 36) >(shown "Channel")
            split(value["BssEnabled"], enabled, ";")
            for (number = 0; number < ENVIRON["count"]; number++) {
                name = ENVIRON["interface"] number
                state = ENVIRON["ZAV_SIM_DIR"] "/interfaces/" name
                if ((getline line <state) < 0)
                    continue # removed by a stop meanwhile
                close(state)
                key = "SSID" number + 1
                printf "%s", key in value ? value[key] "\n" : "" >(shown "SSID." name)
                # The first interface carries the radio, so it is up whatever its own setting says.
                print (number == 0 || enabled[number + 1] == "1" ? "up" : "down") >state
                close(state)
            }
        }' "$(settings_of "$1")"
}

count_bsses() { # BAND
    count=$(setting "$1" BssidNum)
    case $count in '' | *[!0-9]* | ???*) die "no BSS count for $1" ;; esac
}

create_bsses() { # BAND
    count_bsses "$1"
    first=$(interface "$1" '')
    number=0
    while [ "$number" -lt "$count" ]; do
        echo down >"$ZAV_SIM_DIR/interfaces/$first$number"
        number=$((number + 1))
    done
}

event script zv_host.sh "$@"
verb=${1-}
chosen=$(bands "${2-}") || die "usage: zv_host.sh VERB dual|24g|5g"

case $verb in
load)
    [ -e /tmp/ZAV750vlan.dat ] || cp "${0%/*}/../factory/ZAV750vlan.dat" /tmp/ZAV750vlan.dat || exit 1
    for band in $chosen; do create_bsses "$band"; done
    ;;
init | restart_interfaces)
    for band in $chosen; do
        present "$band" || die "the driver of the $band radio is not loaded"
        apply "$band"
    done
    ;;
addvlans) echo "$chosen" >"$ZAV_SIM_DIR/daemons/vlans" ;;
removevlans) rm -f "$ZAV_SIM_DIR/daemons/vlans" ;;
rtdot1xd) echo "$chosen" >"$ZAV_SIM_DIR/daemons/rtdot1xd" ;;
stop)
    rm -f "$ZAV_SIM_DIR"/interfaces/zv* "$ZAV_SIM_DIR"/daemons/rtdot1xd "$ZAV_SIM_DIR"/daemons/wscd
    ;;
*) die "unknown verb: $verb" ;;
esac
