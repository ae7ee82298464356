"""The reference as one page: no framework, no network, a search box, an anchor a procedure, light and dark."""

import html
from pathlib import Path

from .meaning import EFFECTS, look_note, value_note

PAGE = Path(__file__).with_name("reference.html")


def esc(text):
    return html.escape(text, quote=True)


def _row(head, cell):
    return f"<tr><th>{esc(head)}</th><td>{cell}</td></tr>\n" if cell else ""


def _list(items):
    return "<ul>" + "".join(f"<li>{item}</li>" for item in items) + "</ul>" if items else ""


def _values(value):
    """What the values mean; named ones as a list."""
    text = esc(value_note(type(value)(**{**vars(value), "names": {}})))
    names = _list([f"<code>{esc(code)}</code> {esc(meaning)}" for code, meaning in value.names.items()])
    return text + names


def _argument(each):
    secret = " <b>secret</b>" if each.secret else ""
    return f"<code>{esc(each.name)}</code> <i>{esc(each.type)}</i>{secret}: {_values(each.value)}"


def _answer(each):
    result = each.result
    if result.record:
        return f'<a href="#{result.record.name}">{result.record.name}</a>: {esc(result.record.summary)}'
    if result.kind in ("code", "none"):
        return "the return code alone" + ("" if result.kind == "code" else ", in a result record")
    kind = f"a text of at most {result.size - 1} bytes" if result.kind == "text" else result.kind
    return f"<i>{kind}</i>{' <b>secret</b>' if result.secret else ''}: {_values(result.value)}"


def _example(each):
    if not each.example:
        return ""
    before = "# after: wlanctl up\n" if each.example.get("running") else ""
    return f"<pre>{esc(before)}$ wlanctl {esc(each.example['call'])}\n{esc(each.example['prints'])}</pre>"


def _procedure(each):
    fails = [f"{esc(cause.text)} <small>{esc(cause.remedy)}</small>" for cause in each.fails]
    told = [f"<code>{esc(text)}</code>" for text in (*each.driver, *each.scripts)]
    rows = [
        ("arguments", _list([_argument(a) for a in each.arguments])), ("answer", _answer(each)), ("belongs to", esc(each.scope)),
        ("acts", esc(EFFECTS.get(each.effect, ""))),
        ("sent twice", f"runs again; {esc(look_note(each))}" if each.runs_again else "does no harm"),
        ("may take", f"{each.seconds} s" if each.seconds > 1 else ""),
        ("settings", ", ".join(f"<code>{esc(key)}</code>" for key in each.keys)), ("driver, scripts", _list(told)),
        ("fails when", _list(fails) or "does not fail"), ("mind", _list([esc(text) for text in each.oddities])),
        ("comes after", ", ".join(f'<a href="#{name}">{name}</a>' for name in each.after)),
        ("TR-181", f"<code>{esc(each.tr181)}</code>" if each.tr181 else ""), ("example", _example(each))]
    words = " ".join([each.name, each.area, each.summary, *each.keys]).lower()
    return (f'<article id="{each.name}" data-words="{esc(words)}">\n<h3><a href="#{each.name}">{each.name}</a> '
            f"<small>{each.number}</small></h3>\n<p>{esc(each.summary)}</p>\n<table>\n"
            + "".join(_row(*row) for row in rows) + "</table>\n</article>\n")


def _record(record):
    rows = "".join(
        f"<tr><td>{each.offset}</td><td><code>{esc(each.name)}</code></td><td>{esc(each.speaking)}</td>"
        f"<td>{esc(each.type)}{f'[{each.count}]' if each.count > 1 else ''}</td><td>{esc(each.meaning)}</td>"
        f"<td>{esc(each.unit)}</td></tr>\n" for each in [*record.overlay, *record.fields])
    return (f'<article id="{record.name}" data-words="{esc((record.name + " " + record.summary).lower())}">\n'
            f'<h3><a href="#{record.name}">{record.name}</a> <small>record, {record.size} bytes</small></h3>\n'
            f"<p>{esc(record.summary)}</p>\n<table><tr><th>offset</th><th>name</th><th>also called</th><th>type</th>"
            f"<th>meaning</th><th>unit</th></tr>\n{rows}</table>\n</article>\n")


def write(protocol):
    """wlan-configd-protocol.html"""
    parts = []
    for area, procedures in protocol.areas().items():
        parts.append(f'<section>\n<h2>{esc(area.replace("_", " "))}</h2>\n'
                     + "".join(_procedure(each) for each in procedures) + "</section>\n")
    records = [each for each in protocol.records.values() if each.travels in ("image", "numbers")]
    parts.append("<section>\n<h2>records</h2>\n" + "".join(_record(each) for each in records) + "</section>\n")
    codes = _list([f"<code>{code}</code> {esc(keys['meaning'])}" for code, keys in sorted(protocol.codes.items())])
    return (PAGE.read_text(encoding="utf-8").replace("@PROGRAM@", f"{protocol.program['number']:#x}")
            .replace("@VERSION@", str(protocol.program["version"])).replace("@CODES@", codes)
            .replace("@BODY@", "".join(parts)))
