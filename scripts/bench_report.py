#!/usr/bin/env python3
"""bench_report.py FIGURES RESULTS [--write]: the tables of scripts/bench.sh.

Gathers what bench.sh left in the directory FIGURES into the file RESULTS and prints the tables as Markdown. With
--write also replaces the tables in docs/performance.md, each between its markers, and draws docs/performance/*.svg.
What was not measured in this run is left as it stands there.
"""

import datetime
import json
import math
import os
import re
import subprocess
import sys

PEERS = ["pugixml", "libxml2", "tinyxml2", "xerces"]
DOCUMENT = "docs/performance.md"
PLOTS = "docs/performance"


# Gathering


def lines_of(path):
    return open(path).read().splitlines() if os.path.exists(path) else []


def read_json(path):
    if not os.path.exists(path) or os.path.getsize(path) == 0:
        return {}
    with open(path) as file:
        return json.load(file)


def runs(path):
    """Each benchmark's least time of all repetitions, in nanoseconds of processor time, with its counters. Those that
    time themselves, or run in several threads, go by the clock."""
    scale = {"ns": 1.0, "us": 1e3, "ms": 1e6}
    found = {}
    for run in read_json(path).get("benchmarks", []):
        if run["run_type"] != "iteration":
            continue
        name = re.sub("/(iterations|repeats|min_time):[0-9.]+|/(manual|real)_time", "", run["run_name"])
        counters = {key: run[key] for key in ("allocations", "live", "peak", "items_per_second") if key in run}
        clock = "real_time" if name.startswith(("order/", "threads/")) else "cpu_time"
        taken = {"time": run[clock] * scale[run["time_unit"]], **counters}
        found[name] = min(found.get(name, taken), taken, key=lambda one: one["time"])
    return found


def instructions(path):
    found = {}
    for line in lines_of(path):
        reader, size, count = line.split()
        found.setdefault(reader, {})[size] = int(count)
    return found


def shares(path):
    """Instructions of a load by part, from the inclusive figures of the functions at which the parts meet."""
    inclusive = {}
    for line in lines_of(path):
        match = re.match(r"\s*([0-9,]+) \([ 0-9.]+%\)\s+\S+?:(.*?) \[", line)
        if match and match[2] not in inclusive:
            inclusive[match[2]] = int(match[1].replace(",", ""))

    def total(*patterns):
        return sum(
            max((count for name, count in inclusive.items() if re.search(pattern, name)), default=0)
            for pattern in patterns
        )

    document = total(r"VEXMELKConfig::GetRootDOMElement\(CATUnicodeString")
    contents = total("CATXMLPlainReader<.*::ReadContents")
    attributes = total("CATXMLPlainReader<.*::ReadAttributes")
    texts = total("CATXMLPlainReader<.*::ReadText")
    room = total("CATXMLPlainReader<.*::ReserveFor")
    lists = total(r"CATXMLDocument::Complete\(")
    if not contents:
        return {}
    return {
        "attributes": attributes,
        "tags": contents - attributes - texts,
        "texts": texts,
        "counting beforehand": room,
        "lists of elements": lists,
        "finding and reading the file": document - contents - room - lists,
        "catalogue": total(r"VEXMELKConfig::LoadDocuments\(") - document,
    }


def version_of(package):
    output = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True)
    return output.stdout or "not installed"


def machine():
    model = next((line.split(":")[1].strip() for line in lines_of("/proc/cpuinfo") if "model name" in line), "unknown")
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True).stdout.strip()
    packages = ["libexpat1", "libpugixml-dev", "libxml2-dev", "libtinyxml2-dev", "libxerces-c-dev", "libbenchmark-dev"]
    return {
        "processor": f"{model}, {os.cpu_count()} cores",
        "compiler": f"g++ {compiler}, -O3",
        **{package: version_of(package) for package in packages},
    }


def gather(figures):
    first = read_json(f"{figures}/first.json").get("results", [])
    return {
        "date": datetime.date.today().isoformat(),
        "machine": machine(),
        "times": runs(f"{figures}/times.json"),
        "memory": runs(f"{figures}/memory.json"),
        "instructions": instructions(f"{figures}/instructions.txt"),
        "shares": shares(f"{figures}/shares.txt"),
        "first": {one["command"]: one["min"] * 1e3 for one in first},
    }


# Tables


def table(head, rows):
    rows = [head, ["---"] + ["---:"] * (len(head) - 1)] + rows
    return "\n".join("| " + " | ".join(row) + " |" for row in rows)


def duration(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def times_as_much(ratio):
    return f"{ratio:,.0f}x" if ratio >= 100 else f"{ratio:.3g}x"


def machine_table(results):
    return table(["", ""], [[key, value] for key, value in results["machine"].items()])


def query_table(results):
    times = results["times"]
    rows = []
    growth = []
    for separator in ("point", "comma"):
        for own in ("as many", "one"):
            shapes = {n: f"query/{n}/{n if own == 'as many' else 1}/{separator}" for n in (10, 1000, 20000)}
            for standards, shape in shapes.items():
                at = {who: times[f"{shape}/{who}"]["time"] for who in ["library", "floor", *PEERS]}
                best = min(at[peer] for peer in PEERS) / at["library"]
                rows.append([f"{standards:,}", own, separator, *(duration(time) for time in at.values()),
                             f"{at['library'] / at['floor']:.2f}x", times_as_much(best)])
            growth.append(times[f"{shapes[20000]}/library"]["time"] / times[f"{shapes[10]}/library"]["time"])
    allocations = max(run["allocations"] for run in results["memory"].values() if "allocations" in run)
    return (
        table(["standards", "Customer's own", "decimals", "library", "floor", *PEERS, "library / floor",
               "best peer / library"], rows)
        + f"\n\nLibrary, 20,000 standards over 10: {min(growth):.2f}x to {max(growth):.2f}x. "
        + f"Allocations of a warm query: {allocations:g}."
    )


def order_table(results):
    times = results["times"]
    warm = times["query/10/1/point/library"]["time"]
    at = {name: times[f"order/{name}"]["time"] for name in ("any", "first", "later")}
    both, alone = (times[f"threads/query/threads:{count}"]["items_per_second"] for count in (2, 1))
    return table(
        ["", "time of a question", "beside", "ratio"],
        [
            ["each of 20,000 standards once, in any order", duration(at["any"]),
             "the typical query at 10", f"{at['any'] / warm:.2f}x"],
            ["the first question to each of 1,000 standards", duration(at["first"]),
             "a later one", f"{at['first'] / at['later']:.2f}x"],
            ["two threads at once", duration(1e9 / both), "one thread", f"{both / alone:.2f}x as many answers"],
        ],
    )


def configurations_table(results):
    times = results["times"]
    ratios = []
    for name in times:
        if name.startswith("configurations/") and name.endswith("/library"):
            own, other = times[name]["time"], times[name.replace("/library", "/pugixml")]["time"]
            ratios.append((other / own, name.split("/")[1], own, other))
    rows = [[name, duration(own), duration(other), f"{ratio:.2f}x"] for ratio, name, own, other in sorted(ratios)]
    slower = [name for ratio, name, _, _ in sorted(ratios) if ratio < 1]
    return (
        table(["configuration", "library", "pugixml", "pugixml / library"], rows)
        + f"\n\nSlower than pugixml: {', '.join(slower) or 'none'}."
    )


def instructions_table(results):
    counts = results["instructions"]
    rows = []
    for size, label in (("1000000", "1 MB"), ("19000000", "19 MB")):
        own = {reader: of[size] - of["1000"] for reader, of in counts.items() if size in of}
        if own:
            rows.append([label, *(f"{own[reader] / own['expat']:.3f}" for reader in counts),
                         f"{own['library'] / own['pugixml']:.2f}"])
    return table(["instructions, Expat alone = 1", *counts, "library / pugixml"], rows)


def load_table(results):
    times = results["times"]
    everyone = ["library", "expat", *PEERS]
    rows = []
    labels = {"sample": "the files of the sample", "DBAccess.xml": "the sample's `DBAccess.xml`, 400 bytes"}
    for what in ("1 MB", "19 MB", "44 files of 10 kB", "sample", "DBAccess.xml"):
        at = {reader: times[f"load/{what}/{reader}"]["time"] for reader in everyone}
        rows.append([labels.get(what, what), *(f"{time / at['expat']:.2f}" for time in at.values()),
                     f"{at['library'] / at['pugixml']:.2f}", duration(at["library"]), duration(at["expat"])])
    return table(["time, Expat alone = 1", *everyone, "library / pugixml", "library takes", "Expat takes"], rows)


def shares_table(results):
    whole = sum(results["shares"].values())
    rows = [[part, f"{100 * count / whole:.1f} %"] for part, count in results["shares"].items()]
    return table(["part", "share of instructions, 1 MB"], rows)


def memory_table(results):
    memory = results["memory"]
    rows = [
        [f"{kind}, {what}", *(f"{memory[f'memory/{what}/{reader}'][counter]:.2f}" for reader in ["library", *PEERS])]
        for what in ("1 MB", "19 MB")
        for kind, counter in (("after load", "live"), ("peak", "peak"))
    ]
    return table(["heap bytes per byte of XML", "library", *PEERS], rows)


def first_table(results):
    own = results["first"]["melkcfg"]
    return table(["", "milliseconds", "melkcfg = 1"],
                 [[name, f"{time:.2f}", f"{time / own:.2f}"] for name, time in results["first"].items()])


# Growth


def series_of(results, dimension):
    series = {}
    for name, run in results["times"].items():
        parts = name.split("/")
        if parts[0] == "growth" and parts[1] == dimension:
            series.setdefault(parts[2], []).append((int(parts[3]), run["time"]))
    return {who: sorted(series[who]) for who in ("library", "pugixml", "expat") if who in series}


def slope(points):
    """Of the straight line nearest to the points (least squares) on logarithmic axes."""
    xs = [math.log(x) for x, _ in points]
    ys = [math.log(y) for _, y in points]
    x_mean, y_mean = sum(xs) / len(xs), sum(ys) / len(ys)
    return sum((x - x_mean) * (y - y_mean) for x, y in zip(xs, ys)) / sum((x - x_mean) ** 2 for x in xs)


DIMENSIONS = {
    "size": "load time against kilobytes",
    "standards": "query time against standards",
    "categories": "query time against categories of each standard",
    "attributes": "query time against attributes of each category",
    "children": "query time against elements of each category",
    "check": "time of check against standards",
}


def growth_table(results):
    rows = []
    for dimension, label in DIMENSIONS.items():
        for who, points in series_of(results, dimension).items():
            rows.append([label, who, *(duration(points[end][1]) for end in (0, -1)), f"{slope(points):.2f}"])
    plots = "\n".join(f"![{label}](performance/{name}.svg)" for name, label in DIMENSIONS.items())
    return table(["", "", "smallest", "largest", "slope"], rows) + "\n\n" + plots


def plot(title, series):
    width, height, left, right, top, bottom = 480, 300, 64, 36, 34, 34
    every = [point for points in series.values() for point in points]
    low = [math.floor(math.log10(min(values))) for values in zip(*every)]
    high = [math.ceil(math.log10(max(values))) for values in zip(*every)]

    def x_at(x):
        return left + (math.log10(x) - low[0]) / (high[0] - low[0]) * (width - left - right)

    def y_at(y):
        return height - bottom - (math.log10(y) - low[1]) / (high[1] - low[1]) * (height - top - bottom)

    parts = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" font-family="sans-serif" '
        'font-size="11">',
        f'<rect width="{width}" height="{height}" fill="white"/>',
        f'<text x="{left}" y="14" font-size="12">{title}</text>',
    ]
    for power in range(low[0], high[0] + 1):
        x = x_at(10.0**power)
        parts.append(f'<path d="M{x:.1f} {top}V{height - bottom}" stroke="#ddd"/>')
        parts.append(f'<text x="{x:.1f}" y="{height - bottom + 16}" text-anchor="middle">{10**power:,}</text>')
    for power in range(low[1], high[1] + 1):
        y = y_at(10.0**power)
        parts.append(f'<path d="M{left} {y:.1f}H{width - right}" stroke="#ddd"/>')
        parts.append(f'<text x="{left - 6}" y="{y + 4:.1f}" text-anchor="end">{duration(10.0**power)}</text>')
    for index, (who, points) in enumerate(series.items()):
        colour = ["#1b6ca8", "#c0392b"][index % 2]
        path = "L".join(f"{x_at(x):.1f} {y_at(y):.1f}" for x, y in points)
        parts.append(f'<path d="M{path}" fill="none" stroke="{colour}" stroke-width="2"/>')
        parts += [f'<circle cx="{x_at(x):.1f}" cy="{y_at(y):.1f}" r="3" fill="{colour}"/>' for x, y in points]
        parts.append(f'<text x="{left + 170 * index}" y="28" fill="{colour}">{who}, slope {slope(points):.2f}</text>')
    return "\n".join([*parts, "</svg>", ""])


# Writing

TABLES = {
    "machine": ("machine", machine_table),
    "query": ("times", query_table),
    "order": ("times", order_table),
    "configurations": ("times", configurations_table),
    "instructions": ("instructions", instructions_table),
    "load": ("times", load_table),
    "shares": ("shares", shares_table),
    "memory": ("memory", memory_table),
    "first": ("first", first_table),
    "growth": ("times", growth_table),
}


def write(tables, results):
    with open(DOCUMENT) as file:
        text = file.read()
    for name, content in tables.items():
        begin, end = f"<!-- bench: {name} -->\n", "<!-- end -->"
        before, after = text.split(begin)
        text = before + begin + content + f"\n\nTaken on {results['date']}.\n" + after[after.index(end):]
    with open(DOCUMENT, "w") as file:
        file.write(text)
    if not results["times"]:
        return
    os.makedirs(PLOTS, exist_ok=True)
    for name, label in DIMENSIONS.items():
        with open(f"{PLOTS}/{name}.svg", "w") as file:
            file.write(plot(label, series_of(results, name)))


def main(figures, output, *options):
    results = gather(figures)
    with open(output, "w") as file:
        json.dump(results, file, indent=1)
    tables = {name: make(results) for name, (needs, make) in TABLES.items() if results[needs]}
    for name, content in tables.items():
        print(f"## {name}\n\n{content}\n")
    if "--write" in options:
        write(tables, results)


if __name__ == "__main__":
    main(*sys.argv[1:])
