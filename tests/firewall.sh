#!/bin/sh
# firewall.sh BUILD: the rules of SECURITY.md, loaded as they stand there, let in the client that they name alone.
here=$(CDPATH='' cd -- "$(dirname -- "$0")/.." && pwd)
set -e
for place in mgmt:192.168.100 lan:192.168.1; do
    name=${place%%:*} net=${place#*:}
    ip netns add "$name"
    ip link add "${name}0" type veth peer name eth0 netns "$name"
    ip address add "$net.2/24" dev "${name}0" && ip link set "${name}0" up
    ip -n "$name" address add "$net.1/24" dev eth0 && ip -n "$name" address add "$net.9/24" dev eth0
    ip -n "$name" link set eth0 up
done
WLAN_CONFIGD_PORT=7075 "$1/bin/wlan-configd" &
# shellcheck disable=SC2016
sed -n '/^```nft/,/^```/{/^```/d;p}' "$here/SECURITY.md" >/run/rules
failed=0
asks() { # STATUS NAMESPACE SOURCE SERVER [OPTION...]
    expected=$1 from=$2 source=$3 server=$4 status=0 patience=1
    shift 4
    [ "$expected" != 0 ] || patience=10
    ip -n "$from" route replace "${server%.*}.0/24" dev eth0 src "$source"
    ip netns exec "$from" "$build/bin/wlanctl" --host "$server" --timeout $patience "$@" get number_of_entries >/dev/null 2>&1 || status=$?
    [ $status = "$expected" ] || { echo "$from $source $*: $status, not $expected" && failed=1; }
}
build=$1
timeout 20 sh -c 'until rpcinfo -u 127.0.0.1 538054928 1; do sleep 0.05; done' >/dev/null 2>&1
asks 0 lan 192.168.1.1 192.168.1.2
portmapper_by_tcp() { ip netns exec lan timeout -s KILL 2 rpcinfo -T tcp 192.168.1.2 100000 2 >/dev/null 2>&1; }
portmapper_by_tcp
nft -f /run/rules
asks 0 mgmt 192.168.100.1 192.168.100.2
asks 3 mgmt 192.168.100.9 192.168.100.2
asks 3 mgmt 192.168.100.9 192.168.100.2 --port 7075
asks 3 lan 192.168.1.1 192.168.1.2
asks 3 lan 192.168.1.1 192.168.1.2 --port 7075
! portmapper_by_tcp || { echo "the portmapper answers by TCP" && failed=1; }
exit $failed
