"""The protocol for rpcgen: a client in C, and the reference of every other language's."""

import textwrap

from . import cpp

PREFACE = """\
/*
 * The wlan-configd protocol, for clients in any language. Made from protocol/*.toml by protocol/generate.
 *
 * UDP only. The portmapper knows the port. There is no authentication.
 * Compile with rpcgen, for example:  rpcgen -C -h wlan_config.x
 *
 * An index counts the BSSes from 1: first those of the 2.4 GHz radio (zvi00, zvi01, ...), then those of the 5 GHz
 * radio (zv00, zv01, ...); with one radio loaded, only its BSSes count.
 */

%s
enum wlan_config_return_code_e {
%s
};

const WLAN_CONFIG_MAX_RETURN_DATA = %d;

/*
 * return_u_int counts the BYTES that its values occupy (4 for each 32-bit value), not the values: one value
 * travels as four elements of which the first is meant, the rest are zero. Read the leading elements only.
 * return_data holds a text with its terminating zero byte, or a record as its memory image: little-endian, with the
 * layout that its struct below has in C on every little-endian host of 32 or 64 bits. Lay the struct over the bytes
 * or read the fields at the offsets that their comments name; it is not XDR.
 */
struct wlan_config_result_data_t {
    wlan_config_return_code_e return_code;
    unsigned int return_u_int<>;
    opaque return_data<WLAN_CONFIG_MAX_RETURN_DATA>;
};

"""

DEVICE_RESULT = """\
/* Part of the protocol; no procedure of version 1 answers with it. */
struct wlan_device_result_data_t {
    wlan_config_return_code_e return_code;
    wlan_device_t devices<>;
};

"""

TRAVELS = {"image": "as a memory image in return_data", "numbers": "as its words in return_u_int",
           "argument": "as an argument", "not in version 1": "not in version 1"}


def comment(text, indent=""):
    """A comment of 110 columns at the most."""
    text = text.replace("*/", "* /")
    one = f"{indent}/* {text} */\n"
    if len(one) <= 110 and "\n" not in text:
        return one
    lines = [line for paragraph in text.split("\n") for line in textwrap.wrap(paragraph, 106 - len(indent)) or [""]]
    return f"{indent}/*\n" + "".join(f"{indent} * {line}".rstrip() + "\n" for line in lines) + f"{indent} */\n"


def _codes(protocol):
    return ",\n".join(f"    WLAN_CONFIG_{keys['name'].upper().replace(' ', '_')} = {code}"
                      for code, keys in sorted(protocol.codes.items()))


def _code_comment(protocol):
    meanings = "; ".join(f"{code}: {keys['meaning']}" for code, keys in sorted(protocol.codes.items()))
    return comment(meanings + ". The names are this file's.").rstrip("\n")


def field_note(each):
    """Where a field stands and what it means."""
    unit = f" [{each.unit}]" if each.unit else ""
    speaking = f"{each.speaking}: " if each.speaking else ""
    return f"{each.offset}: {speaking}{each.meaning}{unit}"


def _record(record):
    size = f", {record.size} bytes" if record.travels != "argument" else ""
    text = comment(f"{record.summary} Travels {TRAVELS[record.travels]}{size}.")
    text += f"struct {record.name} {{\n"
    for each in record.fields:
        text += comment(field_note(each) if record.travels != "argument" else each.meaning, "    ")
        kind = {"bool": "bool", "string": "string"}.get(each.type, each.type)
        suffix = f"[{each.count}]" if each.count > 1 else "<>" if each.type == "string" else ""
        text += f"    {kind} {each.name}{suffix};\n"
    text += "};\n"
    if record.overlay:
        text += comment("What stands there: " + "; ".join(
            f"{each.name} ({each.count} x {each.type}) at {field_note(each)}" for each in record.overlay))
    return text + "\n"


def _argument_record(name, fields):
    members = "".join(f"    {kind} {field}{'<>' if kind == 'string' else ''};\n" for kind, field in fields)
    return f"struct {name} {{\n{members}}};\n\n"


def _words(record):
    """The layout of an answer in return_u_int, by elements."""
    words = []
    for each in record.fields:
        first, each_size = each.offset // 4, max(each.size // 4, 1)
        last = first + each_size * each.count - 1
        place = f"[{first}]" if last == first else f"[{first}..{last}]"
        wide = " (64 bits, low word first)" if each.size == 8 else ""
        words.append(f"{place} {each.name}{wide}" + (f" [{each.unit}]" if each.unit else ""))
    return "return_u_int: " + ", ".join(words)


def answer_note(result):
    """What the answer of a procedure holds, in words."""
    if result.kind == "record" and result.record.travels == "numbers":
        return f"Answers {result.record.summary[:1].lower()}{result.record.summary[1:].rstrip('.')}. {_words(result.record)}."
    if result.kind == "record":
        return f"Answers return_data: the image of {result.record.name}, {result.size} bytes."
    if result.kind == "text":
        return f"Answers return_data: a text of at most {result.size - 1} bytes and its zero byte."
    if result.kind in ("int", "unsigned int"):
        return f"Answers return_u_int[0]: one {result.kind}."
    return "" if result.kind == "code" else "Answers the code alone."


def _procedure(each):
    notes = [each.summary, answer_note(each.result), *each.oddities]
    kind = "wlan_config_return_code_e" if each.result.kind == "code" else "wlan_config_result_data_t"
    argument = each.argument_record or (each.arguments[0].type if each.arguments else "void")
    return comment(" ".join(note for note in notes if note), " " * 8) + (
        f"        {kind} {each.name}({argument}) = {each.number};\n")


def write(protocol):
    """wlan_config.x"""
    text = PREFACE % (_code_comment(protocol), _codes(protocol), protocol.program["longest_return_data"])
    for record in protocol.records.values():
        if not record.made_up and record.travels != "argument":
            text += _record(record)
            text += DEVICE_RESULT if record.name == "wlan_device_t" else ""
    text += comment("Arguments of the procedures that take more than one.") + "\n"
    for name, fields in cpp.argument_records(protocol).items():
        text += _argument_record(name, fields)
    program = protocol.program
    text += f"program {program['name']} {{\n    version {program['version_name']} {{\n"
    text += "".join(_procedure(each) for each in protocol.procedures)
    return text + f"    }} = {program['version']};\n}} = {program['number']:#x};\n"


def image_layout(protocol):
    """Assertions that rpcgen's structs lie over what the daemon sends."""
    text = '#include "wlan_config.h"\n\n#include <stddef.h>\n\n'
    for record in protocol.records.values():
        if record.travels != "image":
            continue
        text += f'_Static_assert(sizeof(struct {record.name}) == {record.size}, "{record.name}");\n'
        for each in record.fields:
            text += (f'_Static_assert(offsetof(struct {record.name}, {each.name}) == {each.offset}, '
                     f'"{record.name}.{each.name}");\n')
    return text
