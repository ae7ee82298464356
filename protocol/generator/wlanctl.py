"""What wlanctl knows of each procedure: its meaning and the fields of its answer."""

from .cpp import quoted

HEAD = """\
// Made from protocol/*.toml by protocol/generate.

#include "client/knowledge.h"

#include <iterator>

// A record's own fields stand behind those that say better what is in it.

namespace {

using enum Form;
using enum Shown;

"""

SETTINGS = ("lists", "from_zero", "elsewhere")


def _identifier(name):
    return "".join(c if c.isalnum() else "_" for c in name)


def _texts(values):
    return "{" + ", ".join(quoted(each) for each in values) + "}"


def _field(each, shown):
    inner = f"fields_{each.record.name}" if each.record else "{}"
    size, places = (each.size * each.count, 1) if each.form in ("text", "octets", "address") else (each.size, each.count)
    return (f"    {{{quoted(each.name)}, {quoted(each.speaking)}, {each.form}, {each.offset}, {size}, {places}, "
            f"{quoted(each.unit)}, {quoted(each.meaning)}, {shown}, {inner}}},\n")


def _fields(record):
    text = f"constexpr Field fields_{record.name}[] = {{\n"
    for each in record.overlay or []:
        text += _field(each, "everywhere")
    for each in record.fields:
        shown = "only_in_json" if record.overlay else "everywhere" if each.column else "not_in_tables"
        text += _field(each, shown)
    return text + "};\n\n"


def _pair(pair):
    return f"{{true, {pair[0]}, {pair[1]}}}" if pair else "{}"


def _value(value):
    name = f"value_{_identifier(value.name)}"
    named = ""
    if value.names:
        named = f"constexpr NamedValue names_{name}[] = {{\n" + "".join(
            f"    {{{quoted(code)}, {quoted(text)}, {'true' if code in value.answered_only else 'false'}}},\n" for code, text in value.names.items()) + "};\n"
    names = f"names_{name}" if value.names else "{}"
    return named + (
        f"constexpr ValueMeaning {name}{{{quoted(value.meaning)}, {quoted(value.unit)}, {_pair(value.range)}, "
        f"{_pair(value.sensible)}, {_pair(value.length)}, {_pair(value.takes)}, {quoted(value.rule)}, {quoted(value.pattern)}, {names}}};\n")


def _meaning(value):
    if value is None:
        return "{}"
    if value.name:
        return f"value_{_identifier(value.name)}"
    return f"ValueMeaning{{{quoted(value.meaning)}}}"


def _cause(cause, number):
    return f"    {{{quoted(cause.text)}, {quoted(cause.remedy)}, Ask::{cause.ask or 'nothing'}}}, // {number} {cause.name}\n"


def _list(name, kind, items):
    return (f"constexpr {kind} {name}[] = {{{', '.join(items)}}};\n", name) if items else ("", "{}")


def _procedure(each, numbers):
    """The arrays of a procedure, and its row."""
    arrays, row = "", []
    lists = [("arguments", "ValueMeaning", [_meaning(a.value) for a in each.arguments])]
    lists += [(key, "const char *", [quoted(text) for text in getattr(each, key)])
              for key in ("keys", "driver", "scripts", "oddities", "after")]
    lists += [("fails", "unsigned char", [str(numbers[cause.name]) for cause in each.fails])]
    for key, kind, items in lists:
        array, name = _list(f"{each.name}_{key}", kind, items)
        arrays += array
        row.append(name)
    fields = f"fields_{each.result.record.name}" if each.result.record else "{}"
    example = each.example
    return arrays, (
        f"    {{{quoted(each.area)}, {quoted(each.summary)}, {quoted(each.scope)}, {quoted(each.effect)}, {each.seconds}, "
        f"{', '.join(row)}, {_meaning(each.result.value)}, {fields}, {quoted(each.resets)}, {quoted('' if each.look == 'none' else each.look)}, "
        f"{quoted(each.setter)}, {quoted(each.clear)}, {quoted(each.same_as)}, {quoted(each.also)}, {quoted(each.tr181)}, {quoted(each.since)}, "
        f"{quoted(example.get('call', ''))}, {quoted(example.get('prints', ''))}}}, // {each.number} {each.name}\n")


def knowledge(protocol):
    """client/knowledge.cpp"""
    text = HEAD
    for record in protocol.records.values():
        if record.travels in ("image", "numbers"):
            text += _fields(record)
    text += "".join(_value(value) for value in protocol.values.values())
    numbers = {name: number for number, name in enumerate(protocol.causes)}
    text += "\nconstexpr Cause all_causes[] = {\n"
    text += "".join(_cause(cause, numbers[name]) for name, cause in protocol.causes.items()) + "};\n\n"
    rows = ""
    for each in protocol.procedures:
        arrays, row = _procedure(each, numbers)
        text += arrays
        rows += row
    text += f"\n// In the order of the protocol's rows.\nconstexpr Knowledge knowledge[] = {{\n{rows}}};\n"
    for group in SETTINGS:
        text += _list(f"settings_{group}", "const char *", [quoted(key) for key in protocol.settings[group]])[0]
    text += "static_assert(std::size(knowledge) == std::size(protocol));\n\n} // namespace\n\n"
    text += ("const Knowledge &knowledge_of(const Procedure &procedure) { return knowledge[&procedure - protocol]; }\n\n"
             "const Cause &cause(unsigned char number) { return all_causes[number]; }\n")
    form = ", ".join([f"settings_{group}" for group in SETTINGS] + [str(protocol.settings[f"longest_{what}"]) for what in ("file", "key")])
    text += ("\nconst SettingsFormat &settings_format() {\n"
             f"    static constexpr SettingsFormat format{{{form}}};\n    return format;\n}}\n")
    return text
