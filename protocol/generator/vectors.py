"""Requests and replies as bytes, for whoever writes a codec: made from the golden rows that the daemon is tested with."""

import json
import re
import struct
from pathlib import Path

GOLDEN = Path(__file__).resolve().parents[2] / "tests" / "golden"
FORMAT = 1
XID = 0x57C0FFEE
ESCAPES = {"n": 0x0A, "t": 0x09, "0": 0x00, "\\": 0x5C, '"': 0x22}
SUCCESS, PROC_UNAVAIL, GARBAGE_ARGS = 0, 3, 4
KINDS = {"int": ("int",), "uint": ("unsigned int", "unsigned short"), "bool": ("bool",), "text": ("string",)}


def _bytes(quoted):
    """The bytes of a quoted text with the escapes \\\\ \\" \\n \\t \\0 and \\xNN."""
    out, rest = bytearray(), quoted.encode()
    while rest:
        if rest[:1] != b"\\":
            out, rest = out + rest[:1], rest[1:]
        elif rest[1:2] == b"x":
            out, rest = out + bytes([int(rest[2:4], 16)]), rest[4:]
        else:
            out, rest = out + bytes([ESCAPES[rest[1:2].decode()]]), rest[2:]
    return bytes(out)


def _packed(data):
    return struct.pack(">I", len(data)) + data + bytes(-len(data) % 4)


def _request(program, number, arguments):
    return struct.pack(">10I", XID, 0, 2, program["number"], program["version"], number, 0, 0, 0, 0) + arguments


def _reply(status, body=b""):
    return struct.pack(">6I", XID, 1, 0, 0, 0, status) + body


def _arguments(procedure, words):
    """The arguments by name, and their bytes."""
    named, packed = [], b""
    found = re.findall(r'(int|uint|bool) (-?\d+)|(text) "((?:[^"\\]|\\.)*)"', words)
    for described, (kind, number, text_kind, text) in zip(procedure.arguments, found, strict=True):
        if described.type not in KINDS[kind or text_kind]:
            raise ValueError(f"{procedure.name}: {described.name} is no {kind or text_kind}")
        data = _bytes(text) if text_kind else None
        value = int(number) if data is None else data.decode("utf-8", "surrogateescape")
        named.append({"name": described.name, "type": described.type, **(
            {"value": value} if data is None or value.isprintable() else {"bytes": data.hex()})})
        packed += struct.pack(">I", int(number) & 0xFFFFFFFF) if data is None else _packed(data)
    return named, packed


def _data(words):
    """A result record of the row's code, numbers, bytes and size."""
    code, numbers, quoted, size = re.fullmatch(r'(-?\d+) \[([\d,]*)\] "((?:[^"\\]|\\.)*)" ?(\d*)', words).groups()
    values = [int(each) for each in numbers.split(",") if each]
    data = _bytes(quoted).ljust(int(size or 0), b"\0")
    return int(code), struct.pack(f">iI{len(values)}I", int(code), len(values), *values) + _packed(data)


def _cases(protocol, path):
    by_number = {each.number: each for each in protocol.procedures}
    cases = []
    for line in path.read_text(encoding="utf-8").split("\n"):
        keyword, _, rest = line.partition(" ")
        if keyword == "case":
            cases.append({"name": rest, "running": False, "given": {}, "calls": []})
        elif keyword == "running":
            cases[-1]["running"] = True
        elif keyword == "given":
            file, _, quoted = rest.partition(" ")
            cases[-1]["given"][file] = _bytes(quoted.strip()[1:-1]).decode("latin-1")
        elif keyword == "call":
            number, name, *words = rest.split(" ", 2)
            named, packed = _arguments(by_number[int(number)], words[0] if words else "")
            cases[-1]["calls"].append({"procedure": name, "number": int(number), "arguments": named, "request": _request(
                protocol.program, int(number), packed).hex(), "code": None, "reply": None})
        elif keyword in ("code", "data"):
            code, body = (int(rest), struct.pack(">i", int(rest))) if keyword == "code" else _data(rest)
            cases[-1]["calls"][-1].update(code=code, reply=_reply(SUCCESS, body).hex())
    return cases


def _refusals(protocol):
    """What the dispatcher itself answers."""
    program = protocol.program
    rows = [("a number that is not assigned", program["unassigned"][0], b"", PROC_UNAVAIL),
            ("a number beyond the last", program["last_procedure"] + 1, b"", PROC_UNAVAIL)]
    two = next(each for each in protocol.procedures if len(each.arguments) == 2)
    rows.append((f"{two.name} without its second argument", two.number, struct.pack(">i", 1), GARBAGE_ARGS))
    text = next(each for each in protocol.procedures if [a.type for a in each.arguments] == ["int", "string"])
    rows.append((f"{text.name} with a text longer than the datagram", text.number, struct.pack(">iI", 1, 100), GARBAGE_ARGS))
    return [{"name": name, "number": number, "status": status,
             "request": _request(program, number, arguments).hex(), "reply": _reply(status).hex()}
            for name, number, arguments, status in rows]


def write(protocol):
    """vectors.json"""
    cases = [case for path in sorted(GOLDEN.glob("*.golden")) for case in _cases(protocol, path)]
    whole = {
        "format": FORMAT, "program": protocol.program["number"], "version": protocol.program["version"],
        "state": "Each case begins on the simulated gateway in factory state; `given` names files of its state directory "
                 "that are written before, `running` says that the driver is up. The calls follow one another. A reply of "
                 "null: none is sent. Data is hexadecimal.",
        "cases": cases, "refusals": _refusals(protocol)}
    return json.dumps(whole, indent=1, ensure_ascii=True) + "\n"
