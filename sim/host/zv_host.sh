#!/bin/sh
# The host control script of the simulated platform: zv_host.sh VERB BAND, where BAND is dual, 24g or 5g.
# The driver learns the settings when its interfaces are initialised or restarted, and only then.

# shellcheck source=/dev/null
. "${0%/*}/../lib.sh"

present() { # BAND
    [ -e "$ZAV_SIM_DIR/interfaces/$(interface "$1" 0)" ]
}

# Tells the simulated driver what the settings of the band say now.
apply() { # BAND
    channel=$(setting "$1" Channel)
    case $1:$channel in
    24g:0) channel=6 ;;
    5g:0) channel=36 ;;
    esac
    printf '\t%s\n' "$channel" >"$ZAV_SIM_DIR/$1/show/Channel"
    for_each_bss "$1" apply_bss
}

apply_bss() { # BAND INTERFACE NUMBER
    [ -e "$ZAV_SIM_DIR/interfaces/$2" ] || return 0 # removed by a stop meanwhile
    setting "$1" "SSID$(($3 + 1))" >"$ZAV_SIM_DIR/$1/show/SSID.$2"
    enabled=$(setting "$1" BssEnabled | cut -d ';' -f "$(($3 + 1))")
    # The first interface carries the radio, so it is up whatever its own setting says.
    if [ "$3" = 0 ] || [ "$enabled" = 1 ]; then
        echo up >"$ZAV_SIM_DIR/interfaces/$2"
    else
        echo down >"$ZAV_SIM_DIR/interfaces/$2"
    fi
}

create_bss() { # BAND INTERFACE NUMBER
    echo down >"$ZAV_SIM_DIR/interfaces/$2"
}

for_each_bss() { # BAND FUNCTION
    count=$(setting "$1" BssidNum)
    case $count in '' | *[!0-9]* | ???*) die "no BSS count for $1" ;; esac
    number=0
    while [ "$number" -lt "$count" ]; do
        "$2" "$1" "$(interface "$1" "$number")" "$number"
        number=$((number + 1))
    done
}

event script zv_host.sh "$@"
verb=${1-}
chosen=$(bands "${2-}") || die "usage: zv_host.sh VERB dual|24g|5g"

case $verb in
load)
    [ -e /tmp/ZAV750vlan.dat ] || cp "${0%/*}/../factory/ZAV750vlan.dat" /tmp/ZAV750vlan.dat || exit 1
    for band in $chosen; do for_each_bss "$band" create_bss; done
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
