#!/bin/sh
# readme.sh BUILD: plays the transcript of README.md on a simulated gateway.
cd "$(dirname "$0")/.." || exit 2
sim/setup /tmp/gateway
# shellcheck source=/dev/null
. /tmp/gateway/env
env LD_PRELOAD="$1/lib/libzav_sim.so" "$1/bin/wlan-configd" 127.0.0.1 >/dev/null &
PATH=$1/bin:$PATH
timeout 20 sh -c 'until rpcinfo -u 127.0.0.1 538054928 1; do sleep 0.05; done' >/dev/null 2>&1 || exit 1
sed -n 's/^    \$ wlanctl/wlanctl/p' README.md | while read -r command; do
    echo "    \$ $command"
    sh -c "$command" 2>&1 | sed 's/^/    /'
done >/tmp/played
# shellcheck disable=SC2016
[ -s /tmp/played ] && sed -n '/^    \$ /,/^$/{/^$/d;p}' README.md | diff - /tmp/played
