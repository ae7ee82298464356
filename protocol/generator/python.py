"""The client for Python: its hand-written part, with the records, the rows and the methods behind it."""

import textwrap
from pathlib import Path

from .meaning import argument_note, effect_note, result_note

RUNTIME = Path(__file__).resolve().parents[2] / "clients" / "python" / "runtime.py"
FORMATS = {"char": "b", "unsigned char": "B", "unsigned short": "H", "int": "i", "unsigned int": "I", "hyper": "q",
           "unsigned hyper": "Q"}
HINTS = {"int": "int", "unsigned int": "int", "unsigned short": "int", "bool": "bool", "string": "str | bytes"}


def _docstring(lines, indent):
    text = "\n".join(line for paragraph in lines if paragraph for line in textwrap.wrap(paragraph, 112 - len(indent)))
    text = text.replace("\\", "\\\\").replace('"""', "'''")
    ending = '"""\n' if "\n" not in text else f'\n{indent}"""\n'
    return textwrap.indent(f'"""{text}', indent) + ending


def _hint(each):
    if each.form == "text":
        return "str"
    if each.form in ("octets", "address"):
        return "bytes"
    inner = each.record.name if each.record else "int"
    return f"tuple[{inner}, ...]" if each.count > 1 else inner


def _read(each):
    """The expression that reads a field out of `image`."""
    if each.form == "text":
        return f"text_of(image[{each.offset}:{each.offset + each.count}])"
    if each.form in ("octets", "address"):
        return f"image[{each.offset}:{each.offset + each.count}]"
    if each.record:
        counted = f"min({each.used}, {each.count})" if each.used else str(each.count)
        return (f"tuple({each.record.name}.from_image(image[{each.offset} + i * {each.size}:][:{each.size}])"
                f" for i in range({counted}))" if each.count > 1
                else f"{each.record.name}.from_image(image[{each.offset}:{each.offset + each.size}])")
    unpacked = f'struct.unpack_from("<{each.count if each.count > 1 else ""}{FORMATS[each.type]}", image, {each.offset})'
    return unpacked if each.count > 1 else f"{unpacked}[0]"


def _name(each):
    return each.speaking or each.name


def _record(record):
    fields = record.overlay or record.fields
    text = f"\n\n@dataclass(frozen=True)\nclass {record.name}:\n" + _docstring([record.summary], "    ")
    text += f"\n    SIZE = {record.size}\n\n"
    for each in fields:
        note = each.meaning + (f" [{each.unit}]" if each.unit else "")
        text += f"    {_name(each)}: {_hint(each)}" + (f"  # {note}" if note else "") + "\n"
    text += "\n    @classmethod\n    def from_image(cls, image):\n"
    text += f'        """Reads the {record.size} bytes of its memory image. Raises Garbled."""\n'
    text += '        if len(image) != cls.SIZE:\n            raise Garbled(f"{cls.__name__}: {len(image)} bytes")\n'
    for each in fields:
        if any(other.used == each.name for other in fields):
            text += f"        {each.name} = {_read(each)}\n"
    return text + f"        return cls({', '.join(_read(each) for each in fields)})\n"


def _row(each):
    kinds = ", ".join(f'"{a.type}"' for a in each.arguments)
    result, record = each.result.kind, each.result.record
    causes = "".join(f"CAUSES[{cause.name!r}], " for cause in each.fails)
    kind = ("numbers" if record.travels == "numbers" else "image") if record else result
    return (f'    "{each.name}": Procedure({each.number}, "{each.name}", ({kinds}{"," if kinds else ""}), "{kind}", '
            f"{each.result.size}, {record.name if record else None}, {each.runs_again}, {each.seconds}, ({causes})),\n")


def _method(each):
    arguments = "".join(f", {a.name}: {HINTS[a.type]}" for a in each.arguments)
    hint = {"code": "Code", "none": "Code", "int": "int", "unsigned int": "int", "text": "str"}.get(
        each.result.kind, each.result.record.name if each.result.record else "")
    lines = [each.summary, *(argument_note(a) for a in each.arguments), result_note(each), effect_note(each),
             *each.oddities]
    lines.append("Fails when " + "; ".join(cause.text for cause in each.fails) + "." if each.fails else "Does not fail.")
    values = "".join(f", {a.name}" for a in each.arguments)
    return (f"\n    def {each.name.removeprefix('wlan_')}(self{arguments}) -> {hint}:\n" + _docstring(lines, " " * 8)
            + f'        return self.call(PROCEDURES["{each.name}"]{values})\n')


def write(protocol):
    """wlan_config.py"""
    program = protocol.program
    text = RUNTIME.read_text(encoding="utf-8").replace(
        "PORTMAPPER, ", f"PROGRAM, VERSION = {program['number']:#x}, {program['version']}\nPORTMAPPER, ", 1)
    for record in protocol.records.values():
        if record.travels in ("image", "numbers"):
            text += _record(record)
    text += "\n\nCAUSES = {\n"
    text += "".join(f"    {c.name!r}: ({c.text!r}, {c.remedy!r}),\n" for c in protocol.causes.values()) + "}\n"
    text += "\nPROCEDURES = {\n" + "".join(_row(each) for each in protocol.procedures) + "}\n"
    text += '\n\nclass Client(Caller):\n    """One daemon. A method a procedure."""\n'
    return text + "".join(_method(each) for each in protocol.procedures)
