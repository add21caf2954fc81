#!/usr/bin/env python3
"""Prints a header or a page as Doxygen reads it.

In headers the comments before declarations and behind members become Doxygen's own; the comment at the top is about the
file. In pages headings get the names that links use, with the page's name before them, because in a site names are
shared by all pages. Links to what is not in the site, such as sources, become plain text.
"""
import os
import re
import sys

PAGES = {"README", "CONTRIBUTING", "SECURITY"} | {
    name[:-3] for name in os.listdir("docs") if name.endswith(".md")
}


def escaped(text):
    """Of a comment: what Doxygen would take for a command or a tag. Indented text is code, and stands for itself."""
    return text if text.startswith("     ") else re.sub(r"\\(?=\w)|<(?=[/\w*])|%(?=\w)", r"\\\g<0>", text)


def header(lines):
    is_first = True
    is_foreign = False
    for line in lines:
        comment = re.match(r"(\s*)//(?!/)(.*)$", line)
        trailing = re.match(r"(\s*[^\s/#].*?[;,])(\s+)// (.*)$", line)
        if is_first and comment:
            yield "/// \\file"
        is_first = False
        if line.startswith("template <> struct std::"):  # Doxygen cannot place it
            yield "/// \\cond"
            is_foreign = True
        if comment and not re.search(r"-{20,}$", line):
            yield f"{comment[1]}///{escaped(comment[2])}"
        elif trailing:
            yield f"{trailing[1]}{trailing[2]}///< {escaped(trailing[3])}"
        else:
            yield line
        if is_foreign and line == "};":
            yield "/// \\endcond"
            is_foreign = False


def name_of_heading(text):
    """As links write it: small letters, "-" for blanks, no other signs."""
    return re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")


def link(match, page):
    text, target = match[1], match[2]
    path, _, heading = target.partition("#")
    name = os.path.basename(path)[:-3] if path.endswith(".md") else ""
    if re.match(r"https?:", target):
        return match[0]
    if heading and (not path or name in PAGES):
        return f"[{text}](#{name or page}-{heading})"
    if name in PAGES and not path.startswith("tests"):
        return match[0]
    if path.endswith(".h") and path.startswith(("include/", "../include/")):
        return f"[{text}](@ref {os.path.basename(path)})"
    return text


def prose(text, name):
    text = re.sub(r"(?m)^(##+ (.*))$", lambda match: f"{match[1]} {{#{name}-{name_of_heading(match[2])}}}", text)
    text = re.sub(r"!\[([^\]]*)\]\([^()\s]*/([^()/\s]+)\)", r"![\1](\2)", text)
    text = re.sub(r"&(?=\w+;)", "&amp;", text)
    return re.sub(r"(?<!!)\[((?:[^\[\]]|`[^`]*`)+)\]\(([^()\s]+)\)", lambda match: link(match, name), text)


def page(lines, name):
    """Code stays as it is."""
    parts = re.split(r"(?ms)(^ *```.*?^ *```$)", "\n".join(lines))
    for number, part in enumerate(parts):
        yield part if number % 2 else prose(part, name)


def main():
    path = sys.argv[1]
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    name = os.path.splitext(os.path.basename(path))[0]
    print("".join(page(lines, name)) if path.endswith(".md") else "\n".join(header(lines)))


main()
