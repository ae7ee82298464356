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
    expected=$1 from=$2 source=$3 server=$4 status=0
    shift 4
    ip -n "$from" route replace "${server%.*}.0/24" dev eth0 src "$source"
    ip netns exec "$from" "$build/bin/wlanctl" --host "$server" --timeout 1 "$@" get number_of_entries >/dev/null 2>&1 || status=$?
    [ $status = "$expected" ] || { echo "$from $source $*: $status, not $expected" && failed=1; }
}
build=$1
until rpcinfo -u 127.0.0.1 538054928 1 >/dev/null 2>&1; do sleep 0.05; done
asks 0 lan 192.168.1.1 192.168.1.2
nft -f /run/rules
asks 0 mgmt 192.168.100.1 192.168.100.2
asks 3 mgmt 192.168.100.9 192.168.100.2
asks 3 mgmt 192.168.100.9 192.168.100.2 --port 7075
asks 3 lan 192.168.1.1 192.168.1.2
asks 3 lan 192.168.1.1 192.168.1.2 --port 7075
exit $failed
