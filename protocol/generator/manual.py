"""wlan-configd-protocol(7), for scdoc."""

import re

from .meaning import argument_note, effect_note, result_note
from .rpcgen import field_note

HEAD = """\
wlan-configd-protocol(7)

# NAME

wlan-configd-protocol - the procedures of wlan-configd, what they take, answer and mean

# DESCRIPTION

ONC RPC on UDP: program %s, version %d; the portmapper knows the port. There is no authentication. Each procedure is
called by *wlanctl*(1) as *wlanctl get* NAME, *wlanctl set* NAME or *wlanctl call* NAME, without its _wlan\\__.

Every answer begins with a return code:

"""


def esc(text):
    """Text for scdoc: its marks mean themselves."""
    return re.sub(r"([*_\\#`~.\[\]<>|])", r"\\\1", text)


def _procedure(each):
    notes = [*(argument_note(a) for a in each.arguments), result_note(each), f"Belongs to the {each.scope}. {effect_note(each)}"]
    if each.keys:
        notes.append("Settings: " + ", ".join(each.keys) + ".")
    notes.append("Fails when " + "; ".join(f"{cause.text} ({cause.remedy})" if cause.remedy else cause.text
                                           for cause in each.fails) + "." if each.fails else "Does not fail.")
    notes += each.oddities
    if each.tr181:
        notes.append(f"TR-181: {each.tr181}")
    text = f"## {esc(each.name)} ({each.number})\n\n{esc(each.summary)}\n\n"
    return text + "".join(f"- {esc(' '.join(note.split()))}\n" for note in notes if note) + "\n"


def _record(record):
    text = f"## {esc(record.name)} ({record.size} bytes)\n\n{esc(record.summary)}\n\n"
    return text + "".join(f"- *{esc(each.name)}* at {esc(' '.join(field_note(each).split()))}\n"
                          for each in record.overlay or record.fields) + "\n"


def write(protocol):
    """wlan-configd-protocol.7.scd"""
    text = HEAD % (f"{protocol.program['number']:#x}", protocol.program["version"])
    text += "".join(f"- *{code}* {esc(keys['meaning'])}\n" for code, keys in sorted(protocol.codes.items())) + "\n"
    for area, procedures in protocol.areas().items():
        text += f"# {esc(area.replace('_', ' ').upper())}\n\n" + "".join(_procedure(each) for each in procedures)
    text += "# RECORDS\n\nThe offset of each field is that in the record's memory image, in bytes.\n\n"
    text += "".join(_record(each) for each in protocol.records.values() if each.travels in ("image", "numbers"))
    return text + "# SEE ALSO\n\n*wlan-configd*(8), *wlanctl*(1)\n"
