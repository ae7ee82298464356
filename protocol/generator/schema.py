"""What each kind of table may and must hold."""

TEXTS = "a list of texts"
PAIR = "two numbers"

# Of each kind: the keys with their types; a type in a one-element tuple is optional.
KINDS = {
    "program": {"name": str, "number": int, "version_name": str, "version": int, "last_procedure": int,
                "unassigned": list, "longest_return_data": int},
    "settings": {"lists": TEXTS, "from_zero": TEXTS, "elsewhere": TEXTS, "longest_file": int, "longest_key": int},
    "value": {"meaning": str, "unit": (str,), "range": (PAIR,), "sensible": (PAIR,), "names": (dict,), "answered_only": (TEXTS,),
              "length": (PAIR,), "takes": (PAIR,), "rule": (str,), "pattern": (str,)},
    "cause": {"text": str, "remedy": (str,), "ask": (str,)},
    "argument": {"type": str, "is": (str,), "meaning": (str,)},
    "argument of a procedure": {"name": str, "type": str, "is": (str,), "meaning": (str,), "secret": (bool,)},
    "result": {"type": str, "is": (str,), "meaning": (str,), "size": (int,), "record": (str,), "count": (int,),
               "secret": (bool,)},
    "record": {"name": str, "travels": str, "size": (int,), "summary": str, "fields": list, "overlay": (list,),
               "made_up": (bool,)},
    "field": {"name": str, "type": str, "meaning": str, "count": (int,), "form": (str,), "unit": (str,), "as": (str,),
              "column": (bool,), "used": (str,)},
    "procedure": {"number": int, "name": str, "arguments": list, "argument_record": (str,), "result": (str, dict),
                  "summary": str, "scope": str, "effect": str, "repeat": str, "look": (str,), "seconds": (int,), "keys": (TEXTS,),
                  "driver": (TEXTS,), "scripts": (TEXTS,), "fails": TEXTS, "oddities": (TEXTS,), "after": (TEXTS,),
                  "example": dict, "resets": (str,), "setter": (str,), "clear": (str,), "same_as": (str,), "also": (str,), "tr181": (str,), "since": (str,)},
    "example": {"call": str, "prints": str, "running": (bool,), "status": (int,)},
}

WORDS = {
    ("procedure", "scope"): ("BSS", "radio", "gateway"),
    ("procedure", "effect"): ("at once", "at the next restart", "at the next load", "none"),
    ("procedure", "repeat"): ("safe", "runs again"),
    ("record", "travels"): ("image", "numbers", "argument", "not in version 1"),
    ("field", "form"): ("text", "octets", "address"),
    ("cause", "ask"): ("index", "initialised", "started", "lock", "folder", "argument"),
    ("argument", "type"): ("int", "unsigned int", "unsigned short", "bool", "string"),
    ("argument of a procedure", "type"): ("int", "unsigned int", "unsigned short", "bool", "string"),
    ("result", "type"): ("int", "unsigned int", "text", "record"),
}


def _is(kind, thing):
    if kind == TEXTS:
        return isinstance(thing, list) and bool(thing) and all(isinstance(each, str) and each for each in thing)
    if kind == PAIR:
        return isinstance(thing, list) and [type(each) for each in thing] == [int, int]
    return isinstance(thing, kind) and (kind is not int or not isinstance(thing, bool))


def _key_faults(kind, key, wanted, thing):
    types = wanted if isinstance(wanted, tuple) else (wanted,)
    if not any(_is(each, thing) for each in types):
        named = " or ".join(each if isinstance(each, str) else each.__name__ for each in types)
        return [f"{kind}: '{key}' is to be {named}"]
    if isinstance(thing, str) and key in ("summary", "meaning", "text") and not thing.strip():
        return [f"{kind}: '{key}' is empty"]
    words = WORDS.get((kind, key))
    if words and thing not in words:
        return [f"{kind}: '{key}' is one of {', '.join(words)}, not '{thing}'"]
    return []


def faults(kind, keys):
    """(key, text) for each thing that is wrong with a table of that kind."""
    if kind == "code":
        return
    if kind not in KINDS:
        yield None, f"no table is called '{kind}'"
        return
    known = KINDS[kind]
    for key in keys:
        if key not in known:
            yield key, f"{kind}: no key is called '{key}'"
    for key, wanted in known.items():
        if key in keys:
            for text in _key_faults(kind, key, wanted, keys[key]):
                yield key, text
        elif not isinstance(wanted, tuple) or (kind, key) == ("procedure", "result"):
            yield None, f"{kind}{' ' + str(keys['name']) if 'name' in keys else ''}: '{key}' is missing"
    if kind == "record":
        for each in [*keys.get("fields", []), *keys.get("overlay", [])]:
            yield from (("fields", text) for _, text in faults("field", each))
    if kind == "procedure" and isinstance(keys.get("example"), dict):
        yield from (("example", text) for _, text in faults("example", keys["example"]))
