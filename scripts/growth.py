#!/usr/bin/env python3
"""scripts/growth.py [FILE...]: looks for cost that grows faster than the file. Blows every sample file (or those named,
such as Vision/Mirror.xml) up in each direction: many of an element, elements nested in themselves, many of one below
nested ones of another, many of two that may refer to each other. Asks every operation of melkcfg about each, and where
that takes long, again at smaller sizes. Prints what grows faster than size times its logarithm, and with status 1 then;
draws build/growth/*.svg of the slowest cases. Needs the release build."""
import copy
import itertools
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as tree

from bench_report import plot, slope

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "configuration"
MELKCFG = ROOT / "build/release/bin/melkcfg"
PLOTS = ROOT / "build/growth"
SIZES = [1000, 2000, 4000, 8000]  # elements
DEEPEST = 4000  # the library refuses elements nested deeper than 10,000
SECONDS_WORTH_A_LOOK = 0.3
STEEPEST = 1.35  # of time over size, both as logarithms; size times its logarithm has about 1.1 here
PLOTTED = 6


def run(*arguments, text=None):
    """The answer of melkcfg, and the seconds of processor time it took."""
    process = subprocess.Popen([MELKCFG, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    answer, messages = process.communicate(text and text.encode())
    return answer, messages


def seconds_for(directory, requests):
    before = os.times()
    answer, messages = run("--config", directory, "call", "--batch", text=requests)
    after = os.times()
    assert answer.count(b"\n") == requests.count("\n"), messages
    return after.children_user - before.children_user + after.children_system - before.children_system


def described():
    """For each file: the configuration's name and its operations."""
    listed = json.loads(run("--config", SAMPLES, "--format", "json", "list")[0])
    files = {}
    for entry in listed:
        if entry.get("file"):
            operations = json.loads(run("--format", "json", "operations", entry["name"])[0])[entry["name"]]
            files[entry["file"].replace("\\", "/")] = (entry["name"], operations)
    return files


def requests_for(name, operations, texts):
    """Each operation with the names that the file has, and with one that it does not have."""
    lines = []
    for operation, text in itertools.product(operations, [*texts, "none"]):
        arguments = {"standard": "S", "category": "c"}
        values = {"text": text, "flag": True, "integer": 1, "number": 0.4}
        wanted = {each["name"]: arguments.get(each["name"], values.get(each["type"])) for each in operation["arguments"]}
        wanted = {key: value for key, value in wanted.items() if value is not None}
        lines.append(json.dumps({"config": name, "operation": operation["name"], "arguments": wanted}))
    return "\n".join(lines) + "\n"


class Sample:
    """One standard of a file with one category, and the kinds of elements in it."""

    def __init__(self, path):
        self.root = tree.parse(path).getroot()
        for element in self.root.iter():
            element.tail = None
        standards = self.root.findall("standard")
        for other in standards[1:]:
            self.root.remove(other)
        for standard in standards[:1]:
            standard.set("name", "S")
            for other in standard.findall("category")[1:]:
                standard.remove(other)
            for category in standard.findall("category"):
                category.set("name", "c")
        self.parents = {child: parent for parent in self.root.iter() for child in parent}
        self.kinds = {}
        for element in self.root.iter():
            if element is not self.root:
                self.kinds.setdefault((self.parents[element].tag, element.tag), element)

    def above(self, element):
        while element in self.parents:
            element = self.parents[element]
            if element is not self.root:
                yield element

    def texts(self):
        """Names in the file that an argument can be."""
        names = {value for element in self.root.iter() for value in element.attrib.values() if value[:1].isalpha()}
        return sorted(names)[:1]


def written(element, number=None):
    """The element's text; with a number, its names are numbered."""
    if number is None:
        return tree.tostring(element, encoding="unicode")
    attributes = "".join(
        f' {key}="{value}{number}"' if value[:1].isalpha() else f' {key}="{value}"' for key, value in element.attrib.items()
    )
    contents = "".join(written(child) for child in element)
    return f"<{element.tag}{attributes}>{contents}</{element.tag}>"


def tag_of(element):
    attributes = "".join(f' {key}="{value}"' for key, value in element.attrib.items())
    return f"<{element.tag}{attributes}>"


def placed(sample, contents):
    """The document with further contents at the end of some elements."""
    def text(element):
        inner = "".join(text(child) for child in element)
        return tag_of(element) + (element.text or "") + inner + contents.get(element, "") + f"</{element.tag}>"

    return text(sample.root)


def cases(sample):
    """Names, and documents by their number of elements."""
    kinds = list(sample.kinds.values())
    parent = sample.parents.get
    for element in kinds:
        yield f"many <{element.tag}>", lambda size, e=element: placed(
            sample, {parent(e): "".join(written(e, n) for n in range(size))})
        yield f"many equal <{element.tag}>", lambda size, e=element: placed(sample, {parent(e): written(e) * size})
        yield f"<{element.tag}> nested in itself", lambda size, e=element: placed(
            sample, {parent(e): nested(e, "", size // 2)})
        for outer in sample.above(element):
            for name, unit in (("", "{}"), ("wrapped ", "<x>{}</x>")):
                yield f"many {name}<{element.tag}> in nested <{outer.tag}>", lambda size, e=element, o=outer, u=unit: placed(
                    sample, {parent(o): nested(o, u.format(written(e)) * size, size // 2)})
    for one, other in itertools.combinations(kinds, 2):
        yield f"many <{one.tag}> and <{other.tag}>", lambda size, a=one, b=other: placed(
            sample, many_of_two(sample, a, b, size // 2))


def nested(element, contents, depth):
    depth = min(depth, DEEPEST)
    return tag_of(element) * depth + contents + f"</{element.tag}>" * depth


def many_of_two(sample, one, other, size):
    contents = {}
    for element, numbers in ((one, range(size)), (other, reversed(range(size)))):
        parent = sample.parents[element]
        contents[parent] = contents.get(parent, "") + "".join(written(element, n) for n in numbers)
    return contents


def measure(directory, file, requests, document, size):
    path = pathlib.Path(directory, "Default", file)
    path.parent.mkdir(parents=True, exist_ok=True)
    text = document(size)
    path.write_text(text)
    return len(text), seconds_for(directory, requests)


def main():
    slow = []
    counted = 0
    for file, (name, operations) in described().items():
        sample_path = SAMPLES / "Default" / file
        if (sys.argv[1:] and file not in sys.argv[1:]) or not sample_path.exists():
            continue
        sample = Sample(sample_path)
        requests = requests_for(name, operations, sample.texts())
        with tempfile.TemporaryDirectory() as directory:
            for case, document in cases(sample):
                counted += 1
                if measure(directory, file, requests, document, SIZES[-1])[1] < SECONDS_WORTH_A_LOOK:
                    continue
                points = [measure(directory, file, requests, document, size) for size in SIZES]
                slow.append((slope(points), points[-1][1], f"{file}: {case}", points))
                print(f"{points[-1][1]:8.2f} s  slope {slope(points):.2f}  {file}: {case}", flush=True)
    steep = [case for case in slow if case[0] > STEEPEST]
    PLOTS.mkdir(parents=True, exist_ok=True)
    for number, (_, _, case, points) in enumerate(sorted(slow, key=lambda each: -each[1])[:PLOTTED]):
        label = case.replace("<", "&lt;").replace(">", "&gt;")
        seconds = [(size, time * 1e9) for size, time in points]
        (PLOTS / f"{number}.svg").write_text(plot(f"time over bytes: {label}", {"library": seconds}))
    print(f"{counted} cases, {len(slow)} of {SECONDS_WORTH_A_LOOK} s or more, {len(steep)} grow faster than the file")
    sys.exit(1 if steep else 0)


if __name__ == "__main__":
    main()
