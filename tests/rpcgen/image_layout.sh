#!/bin/sh
# image_layout.sh CC FOLDER-OF-wlan_config.h image_layout.c RPC-INCLUDE: compiles the assertions of sizes and offsets.
set -eu
for word in -m64 -m32; do
    if ! echo '#include <stdio.h>' | "$1" $word -fsyntax-only -x c - 2>/dev/null; then
        echo "$word: no headers on this machine"
        continue
    fi
    "$1" $word -std=c11 -fsyntax-only -w -I "$2" -I "$4" "$3"
    echo "$word: right"
done
