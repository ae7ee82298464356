"""The daemon's tables and declarations."""

HEAD = "#pragma once\n\n// Made from protocol/*.toml by protocol/generate.\n\n"
FIELD_TYPES = {"char": "char", "unsigned char": "unsigned char", "unsigned short": "unsigned short", "int": "int",
               "unsigned int": "unsigned", "hyper": "std::int64_t", "unsigned hyper": "std::uint64_t"}
ARGUMENT_TYPES = {"int": "int", "unsigned int": "unsigned", "unsigned short": "unsigned short", "bool": "bool",
                  "string": "char *"}
KINDS = {"int": "integer", "unsigned int": "unsigned_integer", "unsigned short": "unsigned_short", "bool": "boolean",
         "string": "text"}
RESULTS = {"code": "code", "none": "none", "int": "integer", "unsigned int": "unsigned_integer", "text": "text"}
WORDS = ("int", "unsigned int", "unsigned short")


def quoted(text):
    """A C++ literal."""
    escaped = text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n").replace("?", "\\?")
    return f'"{escaped}"'


def _member(kind, name, count=1):
    return f"    {kind}{'' if kind.endswith('*') else ' '}{name}{f'[{count}]' if count > 1 else ''};\n"


def _tied(fields):
    """std::tie of the fields; where single words stand in a row, they are coded in one piece."""
    runs = []
    for each in fields:
        word = each.count == 1 and each.type in WORDS
        if runs and word and runs[-1][0]:
            runs[-1][1].append(each.name)
        elif runs and not word and not runs[-1][0]:
            runs[-1][1].append(each.name)
        else:
            runs.append((word, [each.name]))
    ties = [f"std::tie({', '.join(names)})" for _, names in runs]
    return ties[0] if len(ties) == 1 else f"std::tuple({', '.join(ties)})"


def _record(record):
    text = f"// {record.summary}\nstruct {record.name} {{\n"
    for each in record.fields:
        text += _member(each.type if each.record else FIELD_TYPES[each.type], each.name, each.count)
    text += f"    auto fields() {{ return {_tied(record.fields)}; }}\n}};\n"
    places = [f"offsetof({record.name}, {each.name}) == {each.offset}" for each in record.fields]
    return text + f"static_assert(sizeof({record.name}) == {record.size} &&\n" + " &&\n".join(
        f"              {place}" for place in places) + ");\n\n"


def records(protocol):
    """The records that operations fill and clients receive."""
    text = HEAD + "#include <cstddef>\n#include <cstdint>\n#include <tuple>\n\n"
    text += ("// Those that travel as their memory image have the layout of the wire. `fields()` names a record's items in\n"
             "// wire order; items in a tuple of their own are a run of 32-bit words, which is coded in one piece.\n\n")
    return text + "".join(_record(each) for each in _structs(protocol) if each.travels != "argument")


def _structs(protocol):
    return [each for each in protocol.records.values() if not each.made_up]


def argument_records(protocol):
    """Name and (type, name) of the fields of each argument record, in the order of the procedures."""
    found = {}
    for procedure in protocol.procedures:
        if procedure.argument_record:
            found.setdefault(procedure.argument_record, [(each.type, each.name) for each in procedure.arguments])
    for record in _structs(protocol):
        if record.travels == "argument":
            found.setdefault(record.name, [(each.type, each.name) for each in record.fields])
    return found


def arguments(protocol):
    """The arguments of the procedures that take more than one."""
    text = HEAD + "#include <tuple>\n\n"
    for name, fields in argument_records(protocol).items():
        members = "".join(_member(ARGUMENT_TYPES[kind], field) for kind, field in fields)
        text += f"struct {name} {{\n{members}    auto fields() {{ return std::tie({', '.join(n for _, n in fields)}); }}\n}};\n\n"
    return text


def named_codecs(protocol):
    """The protocol's codecs by name."""
    names = ["wlan_config_return_code_e", "wlan_config_result_data_t", "wlan_device_result_data_t"]
    names += [each.name for each in _structs(protocol) if each.travels != "argument"] + list(argument_records(protocol))
    text = HEAD + '#include "rpc/arguments.h"\n#include "rpc/codec.h"\n\n'
    text += "// Each encodes, decodes or frees its record by the stream's mode; TRUE or FALSE.\n\n"
    return text + "".join(f"inline bool_t xdr_{name}(XDR *x, {name} *record) {{ return item(x, *record); }}\n"
                          for name in names)


def procedures(protocol):
    """The server procedures and the rooms of the texts that they answer."""
    text = HEAD + '#include "rpc/records.h"\n\n#include <cstddef>\n\n'
    text += "// The server procedures, in the order of their numbers. One that is defined otherwise does not compile.\n\n"
    for each in protocol.procedures:
        parameters = [f"{'const ' if a.type == 'string' else ''}{ARGUMENT_TYPES[a.type]} {a.name}".replace("* ", "*")
                      for a in each.arguments]
        result = "wlan_config_return_code_e" if each.result.kind == "code" else "wlan_config_result_data_t"
        text += f"int {each.name}_1_svc({', '.join([*parameters, f'{result} *result'])});\n"
    text += "\n// Bytes of each text with its zero byte: what a client can receive.\nnamespace text_size {\n"
    for each in protocol.procedures:
        if each.result.kind == "text":
            text += f"inline constexpr std::size_t {each.name} = {each.result.size};\n"
    return text + "} // namespace text_size\n"


def _result(result):
    if result.kind == "record":
        return "numbers" if result.record.travels == "numbers" else "image"
    return RESULTS[result.kind]


def protocol_rows(protocol):
    """The constants of the program and a row a procedure, for rpc/protocol.h."""
    program = protocol.program
    text = HEAD + "// rpc/protocol.h includes it where the types of the rows are known.\n\n"
    text += f"inline constexpr unsigned {program['name']} = {program['number']:#x};\n"
    text += f"inline constexpr unsigned {program['version_name']} = {program['version']};\n"
    text += f"inline constexpr unsigned last_procedure = {program['last_procedure']};\n"
    unassigned = ", ".join(str(number) for number in program["unassigned"])
    text += f"inline constexpr unsigned unassigned_procedures[] = {{{unassigned}}};\n"
    text += f"inline constexpr unsigned longest_return_data = {program['longest_return_data']};\n\n"
    text += "inline constexpr Procedure protocol[] = {\n"
    for each in protocol.procedures:
        fields = ", ".join(f"{{{quoted(a.name)}, Kind::{KINDS[a.type]}, {str(a.secret).lower()}}}" for a in each.arguments)
        text += (f"    {{{each.number}, {quoted(each.name)}, {{{{{{{fields}}}}}, {len(each.arguments)}}}, "
                 f"Result::{_result(each.result)}, {each.result.size}, {str(each.result.secret).lower()}, "
                 f"{str(each.runs_again).lower()}}},\n")
    return text + "};\n"


def service_rows(protocol):
    """What joins each server procedure to its number, for rpc/services.cpp."""
    text = HEAD + '#include "rpc/procedures.h"\n#include "rpc/service.h"\n\ninline constexpr Service services[] = {\n'
    return text + "".join(f"    {{{each.number}, {each.name}_1_svc}},\n" for each in protocol.procedures) + "};\n"
