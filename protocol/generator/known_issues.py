"""KNOWN_ISSUES.md: what the protocol prescribes and a user would report as a fault."""

HEAD = """\
# Known issues

Management clients in the field rely on what follows, so it stays in version 1 of the protocol. Each point says what to
do instead, where there is something to do. `wlanctl` knows most of it: it checks values and indexes before it sends
them, and says when a change acts.

**Whoever reaches the port can read and change everything:** see SECURITY.md.
"""


def _names(procedures):
    return ", ".join(f"`{each.name}`" for each in procedures)


def write(protocol):
    """What several procedures have in common stands once, with the names of all."""
    text = HEAD
    for area, procedures in protocol.areas().items():
        points = {}
        for each in procedures:
            for oddity in each.oddities:
                points.setdefault(" ".join(oddity.split()), []).append(each)
        if points:
            text += f"\n## {area.replace('_', ' ').capitalize()}\n\n"
            text += "".join(f"- {_names(each)}: {point}\n" for point, each in points.items())
    return text
