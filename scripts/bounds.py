#!/usr/bin/env python3
"""scripts/bounds.py: asks melkcfg about documents at their bounds and one past them, and prints what it answers, in
which time and with how much memory at most. Needs the release build (cmake --preset release && cmake --build --preset
release), 3 GiB of memory and 150 MB of disk."""
import json
import os
import pathlib
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
MELKCFG = ROOT / "build/release/bin/melkcfg"
DOCUMENT_BYTES = 128 << 20
BEGIN = "<config><standard name='S'><category name='default' front_offset='1mm'/></standard>"
END = "</config>"


def filled(size, unit, before="", behind=""):
    """A document of that many bytes: as many units as there is room for, and blanks."""
    room = size - len(BEGIN) - len(before) - len(behind) - len(END)
    count, blanks = divmod(room, len(unit))
    return BEGIN + before + unit * count + behind + " " * blanks + END


def nested(depth):
    """The root is the outermost of the nested elements."""
    return BEGIN + "<e>" * (depth - 1) + "</e>" * (depth - 1) + END


def chain(length):
    declared = "".join(f"<!ENTITY e{n} '&e{n - 1};'>" for n in range(1, length))
    return f"<!DOCTYPE config [<!ENTITY e0 'x'>{declared}]>" + BEGIN + f"<x>&e{length - 1};</x>" + END


def grown(size, text):
    return f"<!DOCTYPE config [<!ENTITY e '{text}'>]>" + filled(size, "&e;", "<x>", "</x>")


def declared(attributes, size):
    """As many attributes declared of one element, and elements up to that many bytes."""
    lists = "".join(f"<!ATTLIST e a{n} CDATA #IMPLIED>" for n in range(attributes))
    return f"<!DOCTYPE config [{lists}]>" + filled(size, "<e/>")


CASES = [
    ("128 MiB of small elements", lambda: filled(DOCUMENT_BYTES, "<e/>")),
    ("128 MiB of elements with attributes", lambda: filled(DOCUMENT_BYTES, "<e name='n' a='12.5mm' b='30deg'/>\n")),
    ("128 MiB of text", lambda: filled(DOCUMENT_BYTES, "text ", "<x>", "</x>")),
    ("128 MiB in one attribute", lambda: filled(DOCUMENT_BYTES, "value", "<x a='", "'/>")),
    ("one byte more", lambda: filled(DOCUMENT_BYTES + 1, "<e/>")),
    ("10,000 levels of nested elements", lambda: nested(10000)),
    ("one more", lambda: nested(10001)),
    ("64 levels of nested entities", lambda: chain(64)),
    ("one more", lambda: chain(65)),
    ("2 MB of elements with 256 attributes declared", lambda: declared(256, 2000000)),
    ("one more", lambda: declared(257, 2000000)),
    ("20 MiB that grow to 1.9 GiB", lambda: grown(20 << 20, "<e/>" * 9)),
    ("23 MiB that grow past 2 GiB", lambda: grown(23 << 20, "<e/>" * 9)),
    ("1 MiB that grows faster than allowed", lambda: grown(1 << 20, "<e/>" * 60)),
]


def write(path, document):
    """In a process of its own: what is started from a large process counts as large."""
    writer = os.fork()
    if writer == 0:
        path.write_text(document())
        os._exit(0)
    os.waitpid(writer, 0)


def ask(directory):
    request = {"config": "UFCurb", "operation": "GetStandardData", "arguments": {"standard": "S", "category": "c"}}
    begin = time.monotonic()
    process = subprocess.Popen([MELKCFG, "--config", directory, "call", "--batch"], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    process.stdin.write(json.dumps(request).encode() + b"\n")
    process.stdin.close()
    answer = json.loads(process.stdout.read())
    _, status, usage = os.wait4(process.pid, 0)
    assert status == 0, "melkcfg did not end as it should"
    return answer, time.monotonic() - begin, usage.ru_maxrss / 1024


def main():
    print(f"{'document':46}{'seconds':>8}{'MiB':>7}  outcome")
    with tempfile.TemporaryDirectory() as directory:
        path = pathlib.Path(directory, "OVA/UFCurb.xml")
        path.parent.mkdir()
        for name, document in CASES:
            write(path, document)
            answer, seconds, mebibytes = ask(directory)
            outcome = "answers" if answer["result"] else answer["messages"][0]["text"].replace(directory, "")
            print(f"{name:46}{seconds:8.2f}{mebibytes:7.0f}  {outcome}", flush=True)


main()
