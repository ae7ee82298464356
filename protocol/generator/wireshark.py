"""The dissector for Wireshark: its hand-written part with the tables of the protocol in it."""

from pathlib import Path

DISSECTOR = Path(__file__).resolve().parents[2] / "packaging" / "wireshark" / "dissector.lua"
MARK = "-- (What is made from the description stands here: program, version, longest, procedures, records.)\n"


def _table(items):
    return "{ " + ", ".join(items) + " }" if items else "{}"


def _record(record):
    rows = [_table([f'"{each.speaking or each.name}"', f'"{each.type}"', str(each.size), str(each.count),
                    str(each.offset), f'"{each.form}"', f'"{each.used}"']) for each in record.overlay or record.fields]
    return f'    ["{record.name}"] = {{\n' + "".join(f"        {row},\n" for row in rows) + "    },\n"


def _procedure(each):
    arguments = _table([_table([f'"{a.name}"', f'"{a.type}"', str(a.secret).lower()]) for a in each.arguments])
    record = each.result.record
    result = ("numbers" if record.travels == "numbers" else "image") if record else each.result.kind
    parts = [f'name = "{each.name}"', f"arguments = {arguments}", f'result = "{result}"']
    if record:
        parts += [f'record = "{record.name}"', f"size = {record.size}"]
    if each.result.secret:
        parts.append("secret = true")
    return f"    [{each.number}] = {_table(parts)},\n"


def write(protocol):
    """wlan-config.lua"""
    tables = f"local program = {protocol.program['number']:#x}\n\nlocal records = {{\n"
    tables += "".join(_record(each) for each in protocol.records.values() if each.travels in ("image", "numbers"))
    tables += "}\n\nlocal procedures = {\n" + "".join(_procedure(each) for each in protocol.procedures) + "}\n"
    text = DISSECTOR.read_text(encoding="utf-8")
    if MARK not in text:
        raise ValueError("the dissector has no place for its tables")
    return text.replace(MARK, tables)
