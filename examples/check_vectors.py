#!/usr/bin/env python3
"""Proves a codec with the vectors: each request is encoded again and each reply decoded again, byte for byte.

    check_vectors.py vectors.json     (installed as share/wlan-configd/vectors.json)

Replace `encode` and `decode` by what you want to prove; these are XDR in twenty lines.
"""

import json
import struct
import sys


def encode(xid, program, version, call):
    body = b""
    for each in call["arguments"]:
        if each["type"] == "string":
            text = bytes.fromhex(each["bytes"]) if "bytes" in each else each["value"].encode()
            body += struct.pack(">I", len(text)) + text + bytes(-len(text) % 4)
        else:
            body += struct.pack(">I", each["value"] & 0xFFFFFFFF)
    return struct.pack(">10I", xid, 0, 2, program, version, call["number"], 0, 0, 0, 0) + body


def decode(reply):
    """(return code, numbers, data); the last two are None where the reply is a bare code."""
    xid, direction, denied, _, length = struct.unpack_from(">5I", reply)
    status, code = struct.unpack_from(">Ii", reply, 20 + length)
    assert (direction, denied, status) == (1, 0, 0)
    if len(reply) == 28 + length:
        return code, None, None
    count = struct.unpack_from(">I", reply, 28 + length)[0]
    numbers = struct.unpack_from(f">{count}I", reply, 32 + length)
    size = struct.unpack_from(">I", reply, 32 + length + 4 * count)[0]
    return code, numbers, reply[36 + length + 4 * count:][:size]


vectors = json.load(open(sys.argv[1], encoding="utf-8"))
calls = [call for case in vectors["cases"] for call in case["calls"]]
for call in calls:
    request = bytes.fromhex(call["request"])
    assert encode(*struct.unpack_from(">I", request), vectors["program"], vectors["version"], call) == request, call
    assert call["reply"] is None or decode(bytes.fromhex(call["reply"]))[0] == call["code"], call
print(f"{len(calls)} calls of {len({call['number'] for call in calls})} procedures are right")
