"""A client of wlan-configd. Made from the protocol's description: do not edit; nothing but the standard library.

    with Client("192.168.1.1") as gateway:
        print(gateway.get_ssid(1))
        gateway.set_ssid(1, "My net")
        gateway.restart(1)

A method a procedure, named like it without `wlan_`. It returns the answer: a number, a text, a record (a dataclass),
or, where there is none, the `Code`. It raises `Failed` when the gateway answers failure, `NoReply` when none comes in
time, `Unreachable` when there is no daemon, `Garbled` when the answer is not understood. A text is decoded as UTF-8,
bytes that are none as surrogates (so that encoding it again gives the same bytes). The protocol has no
authentication and knows UDP only.
"""

from __future__ import annotations

import asyncio
import enum
import itertools
import random
import socket
import struct
import time
from dataclasses import dataclass

PORTMAPPER, PORTMAPPER_VERSION, GET_PORT, PORTMAPPER_PORT = 100000, 2, 3, 111
UDP = 17
LONGEST_MESSAGE = 8800


class Code(enum.IntEnum):
    """What a change or an action answers when it has not failed."""

    SUCCESS = 0
    UNCHANGED = 2
    IN_PROGRESS = 3


class WlanError(Exception):
    """What every error of this client is."""


class Failed(WlanError):
    """The gateway answered failure. `causes`: what the description knows, most likely first, as (text, remedy)."""

    def __init__(self, procedure, code, causes):
        super().__init__(f"{procedure} answered {code}: {' or '.join(text for text, _ in causes) or 'no known cause'}")
        self.procedure, self.code, self.causes = procedure, code, causes


class NoReply(WlanError):
    """No reply in time. Where `runs_again` is set the state is unknown: the call may have been carried out."""

    def __init__(self, procedure, runs_again):
        super().__init__(f"{procedure}: no reply" + ("; it may have been carried out" if runs_again else ""))
        self.procedure, self.runs_again = procedure, runs_again


class Unreachable(WlanError):
    """The portmapper does not answer or knows no wlan-configd."""


class Garbled(WlanError):
    """A reply that is not what the protocol says."""


# XDR: each item is big-endian and padded to four bytes.


def pack_text(text):
    data = text.encode("utf-8", "surrogateescape") if isinstance(text, str) else bytes(text)
    return struct.pack(">I", len(data)) + data + bytes(-len(data) % 4)


PACKERS = {
    "int": lambda value: struct.pack(">i", value),
    "unsigned int": lambda value: struct.pack(">I", value),
    "unsigned short": lambda value: struct.pack(">I", range(65536)[value]),
    "bool": lambda value: struct.pack(">I", 1 if value else 0),
    "string": pack_text,
}


def call_message(xid, procedure, arguments, program=PROGRAM, version=VERSION):
    """The datagram of a call without credentials."""
    return struct.pack(">10I", xid, 0, 2, program, version, procedure, 0, 0, 0, 0) + arguments


def reply_body(datagram, xid):
    """What the procedure answered; None for the reply to another call. Raises Garbled for a refusal."""
    try:
        got, direction, denied = struct.unpack_from(">3I", datagram)
        if got != xid or direction != 1:
            return None
        if denied:
            raise Garbled("the call was denied")
        length = struct.unpack_from(">I", datagram, 16)[0]
        at = 20 + length + -length % 4
        status = struct.unpack_from(">I", datagram, at)[0]
    except struct.error:
        return None
    if status:
        raise Garbled(("", "no such program", "no such version", "no such procedure", "arguments not understood",
                       "the daemon could not answer")[status] if status < 6 else f"accept status {status}")
    return datagram[at + 4:]


def result_record(body):
    """(code, numbers, data) of a reply that is a result record. Raises Garbled."""
    try:
        code, count = struct.unpack_from(">iI", body)
        numbers = struct.unpack_from(f">{count}I", body, 8)
        length = struct.unpack_from(">I", body, 8 + 4 * count)[0]
    except struct.error:
        raise Garbled("the reply ends too early") from None
    data = body[12 + 4 * count:12 + 4 * count + length]
    if len(data) != length:
        raise Garbled("the reply ends too early")
    return code, numbers, data


def text_of(data):
    """A text up to its zero byte."""
    return data.split(b"\0", 1)[0].decode("utf-8", "surrogateescape")


def image_of_words(numbers, size):
    """The bytes that a record's words are in memory, low byte first."""
    if len(numbers) * 4 < size:
        raise Garbled("the reply lacks numbers")
    return struct.pack(f"<{size // 4}I", *numbers[:size // 4])


@dataclass(frozen=True)
class Procedure:
    """A row of the protocol."""

    number: int
    name: str
    arguments: tuple  # of types
    result: str  # code, none, int, unsigned int, text, numbers, image
    size: int
    record: type | None
    runs_again: bool
    seconds: int
    causes: tuple

    def encode(self, values):
        """The bytes of the arguments. Raises struct.error or IndexError for a number outside its type."""
        return b"".join(PACKERS[kind](value) for kind, value in zip(self.arguments, values, strict=True))

    def decode(self, body):
        """The answer of a reply's body. Raises Failed, Garbled."""
        if self.result == "code":
            if len(body) < 4:
                raise Garbled("the reply ends too early")
            code = struct.unpack_from(">i", body)[0]
        else:
            code, numbers, data = result_record(body)
        if code < 0:
            raise Failed(self.name, code, self.causes)
        if self.result in ("code", "none"):
            return Code(code) if code in Code._value2member_map_ else code
        if self.result == "text":
            return text_of(data)
        if self.result == "image":
            return self.record.from_image(data)
        image = image_of_words(numbers, self.record.SIZE if self.record else 4)
        if self.record:
            return self.record.from_image(image)
        return struct.unpack("<i" if self.result == "int" else "<I", image)[0]


class Caller:
    """The way to one daemon: a UDP socket and the transaction numbers."""

    def __init__(self, host="127.0.0.1", port=None, timeout=5.0, resend=1.0):
        """`port`: None asks the portmapper. `timeout`: seconds that a call may take beyond what the description says
        of its procedure. `resend`: seconds until a lost reply is asked for again, where that does no harm."""
        self.host, self.port, self.timeout, self.resend = host, port, timeout, resend
        self.xids = itertools.count(random.getrandbits(31))
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)

    def close(self):
        self.socket.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def exchange(self, port, program, version, number, arguments, seconds, again):
        """The body of the reply, or None in time."""
        xid = next(self.xids) & 0xFFFFFFFF
        message = call_message(xid, number, arguments, program, version)
        end = time.monotonic() + seconds
        while True:
            self.socket.sendto(message, (self.host, port))
            pause = min(end, time.monotonic() + (self.resend if again else seconds))
            while (left := pause - time.monotonic()) > 0:
                self.socket.settimeout(left)
                try:
                    datagram, peer = self.socket.recvfrom(LONGEST_MESSAGE + 1)
                except TimeoutError:
                    break
                if peer[1] == port and (body := reply_body(datagram, xid)) is not None:
                    return body
            if time.monotonic() >= end:
                return None

    def find_port(self):
        question = struct.pack(">4I", PROGRAM, VERSION, UDP, 0)
        body = self.exchange(PORTMAPPER_PORT, PORTMAPPER, PORTMAPPER_VERSION, GET_PORT, question, self.timeout, True)
        port = struct.unpack(">I", body)[0] if body and len(body) == 4 else 0
        if not port:
            raise Unreachable(f"the portmapper of {self.host} " + ("knows no wlan-configd" if body else "does not answer"))
        return port

    def call(self, procedure, *values):
        """Calls the procedure and returns its answer. Raises Failed, NoReply, Unreachable, Garbled."""
        arguments = procedure.encode(values)
        if self.port is None:
            self.port = self.find_port()
        body = self.exchange(self.port, PROGRAM, VERSION, procedure.number, arguments, self.timeout + procedure.seconds,
                             not procedure.runs_again)
        if body is None:
            raise NoReply(procedure.name, procedure.runs_again)
        return procedure.decode(body)


class AsyncClient:
    """The same methods to await: `await AsyncClient(Client(host)).get_ssid(1)`. One call at a time."""

    def __init__(self, client):
        self.client, self.one_at_a_time = client, asyncio.Lock()

    def __getattr__(self, name):
        method = getattr(self.client, name)

        async def call(*values):
            async with self.one_at_a_time:
                return await asyncio.to_thread(method, *values)

        return call
