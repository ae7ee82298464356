"""The checked model of the protocol. Every target is written from it, and from nothing else."""

import keyword
import re
from dataclasses import dataclass, field
from pathlib import Path

from . import reader, schema

WIRE_TYPES = ("int", "unsigned int", "unsigned short", "bool", "string")
# Size and alignment in a memory image; all hosts that the daemon runs on agree on these.
IMAGE_SIZES = {"char": 1, "unsigned char": 1, "unsigned short": 2, "int": 4, "unsigned int": 4, "hyper": 8,
               "unsigned hyper": 8}
NEVER_FAILS = "does not fail"


class Faults(Exception):
    """What is wrong with the description, a line each: FILE:LINE: what."""

    def __init__(self, lines):
        super().__init__("\n".join(lines))
        self.lines = lines


@dataclass
class Value:
    """What the values of an argument or of an answer mean."""

    name: str
    meaning: str
    unit: str = ""
    range: tuple = ()
    sensible: tuple = ()
    names: dict = field(default_factory=dict)
    answered_only: list = field(default_factory=list)
    length: tuple = ()
    takes: tuple = ()
    rule: str = ""
    pattern: str = ""


@dataclass
class Cause:
    """Why an operation can answer failure, and what to do about it."""

    name: str
    text: str
    remedy: str = ""
    ask: str = ""


@dataclass
class Argument:
    name: str
    type: str
    value: Value
    secret: bool = False


@dataclass
class Field:
    """A field of a record; `offset` and `size` are those of its first element in the memory image."""

    name: str
    type: str
    meaning: str = ""
    count: int = 1
    form: str = ""
    unit: str = ""
    speaking: str = ""
    column: bool = True
    used: str = ""
    record: object = None
    offset: int = 0
    size: int = 0


@dataclass
class Record:
    name: str
    travels: str
    size: int
    summary: str
    fields: list
    overlay: list
    made_up: bool
    alignment: int = 1


@dataclass
class Result:
    """`kind`: code, none, int, unsigned int, text or record; `size`: bytes of the text buffer, the image or the words."""

    kind: str
    size: int = 0
    record: Record = None
    value: Value = None
    secret: bool = False


@dataclass
class Procedure:
    number: int
    name: str
    area: str
    arguments: list
    argument_record: str
    result: Result
    summary: str
    scope: str
    effect: str
    runs_again: bool
    look: str
    seconds: int
    keys: list
    driver: list
    scripts: list
    fails: list
    oddities: list
    after: list
    example: dict
    resets: str
    setter: str
    clear: str
    same_as: str
    also: str
    tr181: str
    since: str


@dataclass
class Protocol:
    program: dict
    settings: dict
    codes: dict
    procedures: list
    records: dict
    values: dict
    causes: dict

    def areas(self):
        """The procedures of each area, areas in the order of their first procedure."""
        areas = {}
        for procedure in self.procedures:
            areas.setdefault(procedure.area, []).append(procedure)
        return areas


class _Builder:
    """Makes the model of the tables and gathers the faults on the way."""

    def __init__(self, tables):
        self.faults = []
        self.tables = [table for table in tables if self._fits_schema(table)]
        self.values = {name: self._value(table) for name, table in self._named("value").items()}
        self.causes = {name: Cause(name, **table.keys) for name, table in self._named("cause").items()}
        self.records = {}
        self.places = {}
        self.shared = self._named("argument")

    def _named(self, kind):
        """The tables of a kind by their name, each once over all files."""
        found = {}
        for table in self._of(kind):
            if table.name in found:
                self.fault(table, None, f"a second {kind} '{table.name}'")
            found[table.name] = table
        return found

    def _of(self, kind):
        return [table for table in self.tables if table.kind == kind]

    def fault(self, table, key, text):
        self.faults.append(f"{table.place.at(key)}: {text}")

    def _fits_schema(self, table):
        found = list(schema.faults(table.kind, table.keys))
        for key, text in found:
            self.fault(table, key, text)
        return not found

    def _value(self, table):
        keys = dict(table.keys)
        for key in ("range", "sensible", "length", "takes"):
            keys[key] = tuple(keys.get(key, ()))
            if keys[key] and (len(keys[key]) != 2 or keys[key][0] > keys[key][1]):
                self.fault(table, key, f"{key} is [least, most]")
        try:
            re.compile(keys.get("pattern", ""))
        except re.error as error:
            self.fault(table, "pattern", f"pattern: {error}")
        keys["names"] = {str(code): text for code, text in keys.get("names", {}).items()}
        for text in keys.get("answered_only", []):
            if text not in keys["names"]:
                self.fault(table, "answered_only", f"'{text}' has no name")
        return Value(table.name, **keys)

    def value_of(self, table, described, key="is"):
        """The value that an argument or a result names or describes on the spot."""
        if key in described and described[key] not in self.values:
            self.fault(table, None, f"no value '{described[key]}'")
        if key in described:
            return self.values.get(described[key])
        return Value("", described.get("meaning", ""))

    # Records

    def build_records(self):
        for table in self._of("record"):
            name = table.keys["name"]
            if name in self.records:
                self.fault(table, "name", f"a second record '{name}'")
                continue
            record = Record(name, table.keys["travels"], table.keys["size"] if "size" in table.keys else 0,
                            table.keys["summary"], [], [], table.keys.get("made_up", False))
            record.fields = self._fields(table, record, table.keys["fields"])
            record.overlay = self._fields(table, record, table.keys.get("overlay", []))
            self.records[name] = record

    def _fields(self, table, record, described):
        """The fields with their places in the image, each at a multiple of its alignment."""
        offset, alignment, fields = 0, 1, []
        for keys in described:
            keys = dict(keys)
            keys["speaking"] = keys.pop("as", "")
            item = Field(**keys)
            inner = self.records.get(item.type)
            if inner is None and item.type not in IMAGE_SIZES and record.travels != "argument":
                self.fault(table, "fields", f"field '{item.name}': no type '{item.type}' (a record stands before its use)")
                continue
            if item.speaking and (not item.speaking.isidentifier() or keyword.iskeyword(item.speaking)):
                self.fault(table, "fields", f"field '{item.name}': '{item.speaking}' cannot be a name in a program")
            item.record = inner
            item.size = inner.size if inner else IMAGE_SIZES.get(item.type, 4)
            own = inner.alignment if inner else item.size
            item.offset = -(-offset // own) * own
            item.form = item.form or _usual_form(item)
            offset, alignment = item.offset + item.size * item.count, max(alignment, own)
            fields.append(item)
        size = -(-offset // alignment) * alignment
        if fields and record.travels != "argument" and size != record.size:
            self.fault(table, "size", f"record '{record.name}' says {record.size} bytes, its fields make {size}")
        record.alignment = max(alignment, record.alignment)
        return fields

    # Procedures

    def argument(self, table, described):
        if isinstance(described, str):
            shared = self.shared.get(described)
            if shared is None:
                self.fault(table, "arguments", f"no shared argument '{described}'")
                return None
            return Argument(described, shared.keys["type"], self.value_of(shared, shared.keys))
        found = list(schema.faults("argument of a procedure", described))
        for _, text in found:
            self.fault(table, "arguments", text)
        if found:
            return None
        return Argument(described["name"], described["type"], self.value_of(table, described),
                        described.get("secret", False))

    def result(self, table, described):
        if isinstance(described, str):
            if described not in ("code", "none"):
                self.fault(table, "result", f"no result '{described}'")
            return Result(described)
        found = list(schema.faults("result", described))
        for _, text in found:
            self.fault(table, "result", text)
        if found:
            return Result("none")
        if described["type"] != "record":
            return Result(described["type"], described.get("size", 4), None, self.value_of(table, described),
                          described.get("secret", False))
        record = self.records.get(described.get("record"))
        if record is None:
            self.fault(table, "result", f"no record '{described.get('record')}'")
            return Result("none")
        return Result("record", described.get("count", record.size), record)

    def procedure(self, table):
        keys = table.keys
        arguments = [self.argument(table, each) for each in keys["arguments"]]
        for name in keys["fails"]:
            if name not in self.causes and [name] != [NEVER_FAILS]:
                self.fault(table, "fails", f"no cause '{name}'")
        area = Path(table.place.path).stem
        return Procedure(
            keys["number"], keys["name"], area, [each for each in arguments if each],
            keys.get("argument_record", keys["name"] + "_1_argument" if len(arguments) > 1 else ""),
            self.result(table, keys["result"]), keys["summary"], keys["scope"], keys["effect"],
            keys["repeat"] == "runs again", self._look(table), keys.get("seconds", 1), keys.get("keys", []), keys.get("driver", []),
            keys.get("scripts", []), [self.causes[name] for name in keys["fails"] if name in self.causes],
            keys.get("oddities", []), keys.get("after", []), keys["example"], keys.get("resets", ""),
            keys.get("setter", ""), keys.get("clear", ""), keys.get("same_as", ""), keys.get("also", ""), keys.get("tr181", ""),
            keys.get("since", "1.0"))

    def _look(self, table):
        """The command that shows whether an action was done; what may be sent again needs none."""
        look = table.keys.get("look", "")
        if bool(look) != (table.keys["repeat"] == "runs again"):
            self.fault(table, "look" if look else "repeat", f"{table.keys['name']}: 'look' is for what runs again, and has to be there")
        if "INDEX" in look and "index" not in table.keys["arguments"]:
            self.fault(table, "look", f"{table.keys['name']} has no index")
        return look

    def build_procedures(self, program):
        procedures = []
        for table in self._of("procedure"):
            procedure = self.procedure(table)
            self.places[procedure.name] = table
            for other in procedures:
                for key in ("number", "name"):
                    if getattr(other, key) == getattr(procedure, key):
                        self.fault(table, key, f"a second procedure of {key} {getattr(procedure, key)}")
            procedures.append(procedure)
        self._check_numbers(procedures, program)
        self._check_references({procedure.name: procedure for procedure in procedures})
        return sorted(procedures, key=lambda procedure: procedure.number)

    def settings(self, procedures):
        """How the settings files hold what the procedures name as keys."""
        table = next(iter(self._of("settings")), None)
        if table is None:
            self.faults.append("no [settings]")
            return {}
        keys = {key for procedure in procedures for key in procedure.keys}
        for group in ("lists", "from_zero", "elsewhere"):
            for key in table.keys[group]:
                if key not in keys:
                    self.fault(table, group, f"no procedure has the key '{key}'")
        return table.keys

    def _check_references(self, named):
        """Procedures name others that there are, and the order of the setters has no way back."""
        known = True
        for procedure in named.values():
            references = [("after", name) for name in procedure.after]
            references += [(key, getattr(procedure, key)) for key in ("setter", "clear", "same_as")]
            references += [("look", f"wlan_get_{name}") for name in re.findall(r"\bget (\w+)", procedure.look)]
            for key, name in references:
                if name and name not in named:
                    known = False
                    self.fault(self.places[procedure.name], key, f"no procedure '{name}'")
        waiting = {name: set(procedure.after) for name, procedure in named.items()}
        while known and waiting:
            free = {name for name, before in waiting.items() if not before & waiting.keys()}
            if not free:
                self.fault(self.places[min(waiting)], "after", f"{', '.join(sorted(waiting))} wait for each other")
                break
            waiting = {name: before for name, before in waiting.items() if name not in free}

    def _check_numbers(self, procedures, table):
        program = table.keys
        wanted = set(range(1, program["last_procedure"] + 1)) - set(program["unassigned"])
        given = {procedure.number for procedure in procedures}
        for number in sorted(wanted - given):
            self.fault(table, "last_procedure", f"procedure {number} is missing")
        for procedure in procedures:
            if procedure.number not in wanted:
                self.fault(self.places[procedure.name], "number", f"number {procedure.number} is not assigned")

    def check_functions(self, sources):
        """Every procedure has its function in the sources, and every function its procedure."""
        functions = {}
        for path in sorted(sources.glob("*.cpp")):
            for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
                if match := re.match(r"int (wlan_\w+)_1_svc\(", line):
                    functions[match[1]] = f"src/rpc/{path.name}:{number}"
        for name, place in functions.items():
            if name not in self.places:
                self.faults.append(f"{place}: {name}_1_svc serves no procedure of the description")
        for name, table in self.places.items():
            if name not in functions:
                self.fault(table, "name", f"procedure {name} has no function {name}_1_svc in src/rpc")


def _usual_form(item):
    if item.record:
        return "table" if item.used else "record"
    if item.count > 1 and item.type == "char":
        return "text"
    if item.count > 1 and item.type == "unsigned char":
        return "octets"
    return "signed_number" if item.type in ("char", "int", "hyper") else "number"


def load(folder, sources=None):
    """The model of the description in `folder`, checked against the server procedures in `sources`. Raises Faults."""
    try:
        tables = reader.read_folder(folder)
    except ValueError as error:
        raise Faults([str(error)]) from None
    builder = _Builder(tables)
    program = next((table for table in builder.tables if table.kind == "program"), None)
    if program is None:
        raise Faults(builder.faults or [f"{Path(folder).name}: no [program]"])
    builder.build_records()
    procedures = builder.build_procedures(program)
    settings = builder.settings(procedures)
    if sources is not None:
        builder.check_functions(sources)
    if builder.faults:
        raise Faults(builder.faults)
    codes = {int(code): keys for table in builder.tables if table.kind == "code" for code, keys in table.keys.items()}
    return Protocol(program.keys, settings, codes, procedures, builder.records, builder.values, builder.causes)
