"""What is made from the model, and where it goes."""

from . import cpp, html, known_issues, manual, python, rpcgen, vectors, wireshark, wlanctl

TARGETS = {
    "KNOWN_ISSUES.md": known_issues.write,
    "wlan-configd-protocol.7.scd": manual.write,
    "wlan-configd-protocol.html": html.write,
    "wlan_config.x": rpcgen.write,
    "include/api/records.h": cpp.records,
    "include/rpc/arguments.h": cpp.arguments,
    "include/rpc/named_codecs.h": cpp.named_codecs,
    "include/rpc/procedures.h": cpp.procedures,
    "include/rpc/protocol_rows.h": cpp.protocol_rows,
    "include/rpc/service_rows.h": cpp.service_rows,
    "image_layout.c": rpcgen.image_layout,
    "client/knowledge.cpp": wlanctl.knowledge,
    "python/wlan_config.py": python.write,
    "vectors.json": vectors.write,
    "wireshark/wlan-config.lua": wireshark.write,
}


def write_all(protocol, directory):
    """Writes each target; a file that would not change keeps its time, so that nothing is compiled again."""
    for name, write in TARGETS.items():
        path = directory / name
        text = write(protocol)
        if not path.exists() or path.read_text(encoding="utf-8") != text:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
