"""Reads the description's files. TOML tells nothing about lines, so each table is looked up in the text again."""

import re
import tomllib
from dataclasses import dataclass
from pathlib import Path

TABLE = re.compile(r"^\[(\[?)\s*([^\]]+?)\s*\]")


@dataclass(frozen=True)
class Place:
    """A table of a file: what an error names."""

    path: str
    lines: tuple
    first: int

    def at(self, key=None):
        """FILE:LINE of the key in the table, or of the table."""
        number = self.first
        if key is not None:
            for offset, line in enumerate(self.lines):
                if re.match(rf'\s*"?{re.escape(str(key))}"?\s*=', line):
                    number += offset
                    break
        return f"{self.path}:{number}"


@dataclass(frozen=True)
class Table:
    """One table of the description: its kind ("procedure"), its name where it has one ([value.NAME]), its keys."""

    kind: str
    name: str
    keys: dict
    place: Place


def _named(header):
    """Kind and name of a header: value.beacon_interval, cause."no BSS", procedure."""
    kind, _, name = header.partition(".")
    return kind.strip(), name.strip().strip('"')


def read_file(path):
    """Every table of a file, in its order. Raises ValueError with FILE:LINE for what is no TOML."""
    text = path.read_text(encoding="utf-8")
    shown = f"{path.parent.name}/{path.name}"
    try:
        whole = tomllib.loads(text)
    except tomllib.TOMLDecodeError as error:
        line = re.search(r"line (\d+)", str(error))
        raise ValueError(f"{shown}:{line[1] if line else 1}: {error}") from None
    lines = text.split("\n")
    starts = [(number, match) for number, line in enumerate(lines) if (match := TABLE.match(line))]
    seen = {}
    tables = []
    for (start, match), end in zip(starts, [number for number, _ in starts[1:]] + [len(lines)], strict=True):
        kind, name = _named(match[2])
        place = Place(shown, tuple(lines[start:end]), start + 1)
        if match[1]:
            keys = whole[kind][seen.setdefault(kind, 0)]
            seen[kind] += 1
        else:
            keys = whole[kind][name] if name else whole[kind]
        tables.append(Table(kind, name, keys, place))
    return tables


def read_folder(folder):
    """The tables of every file of the folder."""
    return [table for path in sorted(Path(folder).glob("*.toml")) for table in read_file(path)]
