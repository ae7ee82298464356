"""The meaning of things in sentences, for every target that people read."""


def _numbers(pair):
    return f"{pair[0]} to {pair[1]}" if pair[0] != pair[1] else str(pair[0])


def value_note(value):
    """What the values mean: meaning, range, names, length, rule."""
    parts = [value.meaning + (f" ({value.unit})" if value.unit else "")]
    if value.range:
        parts.append(f"the daemon takes {_numbers(value.range)}")
    if value.sensible:
        parts.append(f"{_numbers(value.sensible)} make sense")
    if value.names:
        parts.append(", ".join(f"{code}: {text}" for code, text in value.names.items()))
    if value.length:
        parts.append(f"{_numbers(value.length)} bytes")
    if value.takes:
        parts.append(f"the daemon takes {_numbers(value.takes)} bytes")
    if value.rule:
        parts.append(value.rule)
    return "; ".join(part for part in parts if part)


def argument_note(argument):
    """"index (int): the BSS, ..." """
    secret = ", secret" if argument.secret else ""
    return f"{argument.name} ({argument.type}{secret}): {value_note(argument.value)}."


def result_note(procedure):
    """What comes back."""
    result = procedure.result
    if result.kind in ("code", "none"):
        return ""
    if result.record:
        return f"Answers {result.record.name}: {result.record.summary[:1].lower()}{result.record.summary[1:]}"
    note = value_note(result.value)
    kind = f"a text of at most {result.size - 1} bytes" if result.kind == "text" else "a number"
    return f"Answers {kind}{': ' if note else ''}{note}{', secret' if result.secret else ''}."


EFFECTS = {"at once": "Acts at once.", "at the next restart": "Acts at the next restart of the radio (wlan_restart).",
           "at the next load": "Acts when the driver is loaded the next time.", "none": ""}


def look_note(procedure):
    """Of an action: what to do after a lost reply."""
    return "after a lost reply, " + ("no command shows whether it was done" if procedure.look == "none"
                                     else f"look with: wlanctl {procedure.look}")


def effect_note(procedure):
    """When it acts, and whether it may be sent twice."""
    again = f"Runs again when it is sent again; {look_note(procedure)}." if procedure.runs_again else ""
    return " ".join(part for part in (EFFECTS.get(procedure.effect, ""), again) if part)
