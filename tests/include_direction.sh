#!/bin/sh
# An include points to the own layer or to one below: rpc -> api -> security, radio, rrm -> backend.
cd "$(dirname "$0")/../src" || exit 2
allowed() { # LAYER LAYERS...: what a file of the layer may include
    layer=$1
    shift
    ! grep -rnoE '#include "[a-z]+/' "$layer" | grep -vE "\"($(echo "$layer $*" | tr ' ' '|'))/$"
}
allowed backend && allowed security backend && allowed radio backend && allowed rrm backend &&
    allowed api security radio rrm backend && allowed rpc api backend && ! grep -rln '<rpc/' --exclude-dir=rpc --exclude=main.cpp .
