#!/usr/bin/env python3
"""scripts/sample_questions.py MELKCFG DIRECTORY: requests for call --batch: every operation of every configuration, with
each of its standards and categories, and a few other values of the other arguments."""
import itertools
import json
import subprocess
import sys

melkcfg, directory = sys.argv[1:]
OTHERS = {"text": ["", "driver", "default"], "number": [0.0, 250.0], "integer": [1, 95], "flag": [False, True]}


def ask(*arguments):
    command = [melkcfg, "--config", directory, "--format", "json", *arguments]
    run = subprocess.run(command, capture_output=True, check=False)
    return json.loads(run.stdout) if run.stdout else []


def values(argument, standard, category):
    if argument["name"] == "standard":
        return [standard]
    if argument["name"] == "category":
        return [category]
    return OTHERS.get(argument["type"], [""])


for config, operations in ask("operations").items():
    standards = [standard["name"] for standard in ask("standards", config)] if config not in ("BaseData", "DBAccess", "ReportGen") else []
    pairs = [("no such standard", "default")]
    for standard in standards:
        pairs += [(standard, category) for category in (ask("categories", config, standard) or []) + ["no such category"]]
    for operation in operations:
        if operation["name"] in ("FillCFGAttributes", "InitStandardData"):
            continue
        for standard, category in pairs:
            names = [argument["name"] for argument in operation["arguments"]]
            for chosen in itertools.product(*(values(each, standard, category) for each in operation["arguments"])):
                print(json.dumps({"config": config, "operation": operation["name"], "arguments": dict(zip(names, chosen))}))
