#!/usr/bin/env python3
"""scripts/format_tables.py: writes the tables between the marks of docs/format.md, and the pages of docs/rules.md, anew
from the descriptions and rules. A test compares them. Needs the release build (cmake --preset release && cmake --build --preset release)."""
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENT = ROOT / "docs/format.md"
RULES = ROOT / "docs/rules.md"
MELKCFG = ROOT / "build/release/bin/melkcfg"


def table(name):
    printed = subprocess.run([MELKCFG, "schema", name], capture_output=True, text=True, check=True).stdout
    return "".join(line for line in printed.splitlines(keepends=True) if line.startswith("|"))


text = DOCUMENT.read_text()
marked = re.compile(r"(<!-- table (\w+) -->\n).*?(<!-- end of table -->\n)", re.DOTALL)
DOCUMENT.write_text(marked.sub(lambda found: found[1] + table(found[2]) + found[3], text))

pages = subprocess.run([MELKCFG, "rule"], capture_output=True, text=True, check=True).stdout
introduction = RULES.read_text().split("\n## ")[0]
RULES.write_text(introduction + "\n" + pages)
