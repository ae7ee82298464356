#!/bin/sh
# Puts factory settings back: restore_defaults.sh ZAV750 24|5|vlan. A reader sees the old file or the new one.

# shellcheck source=/dev/null
. "${0%/*}/../lib.sh"

event script restore_defaults.sh "$@"
case ${2-} in
24) file=ZAV75024g.dat target=$ZAV_SIM_DIR/settings/ZAV75024g.dat ;;
5) file=ZAV750.dat target=$ZAV_SIM_DIR/settings/ZAV750.dat ;;
vlan) file=ZAV750vlan.dat target=/tmp/ZAV750vlan.dat ;;
*) die "usage: restore_defaults.sh ZAV750 24|5|vlan" ;;
esac
fresh=$ZAV_SIM_DIR/$file.$$
cp "${0%/*}/../factory/$file" "$fresh" && mv -f "$fresh" "$target"
