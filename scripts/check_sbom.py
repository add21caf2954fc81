#!/usr/bin/env python3
"""scripts/check_sbom.py FILE...: fails when a bill of materials lacks what SPDX 2.3 demands, or what we put into it."""
import json
import sys


def problems(document):
    demanded = {"spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo"}
    yield from (f"no {name}" for name in sorted(demanded - document.keys()))
    ids = {"SPDXRef-DOCUMENT"}
    for package in document["packages"]:
        yield from (f"no {name} of {package}" for name in ("name", "SPDXID", "downloadLocation") if not package.get(name))
        if not package.get("versionInfo"):
            yield f"{package['name']} has no version"
        if package["SPDXID"] in ids:
            yield f"{package['SPDXID']} stands twice"
        ids.add(package["SPDXID"])
    related = {relation["relatedSpdxElement"] for relation in document["relationships"]}
    yield from (f"{name} is related to nothing" for name in sorted(ids - related - {"SPDXRef-DOCUMENT"}))
    yield from (f"{name} is no package" for name in sorted(related - ids))
    names = {package["name"] for package in document["packages"]}
    yield from (f"{name} is missing" for name in sorted({"VEXMELKConfiguration", "Expat", "utf8proc"} - names))


failed = False
for path in sys.argv[1:]:
    with open(path, encoding="utf-8") as file:
        for problem in problems(json.load(file)):
            print(f"{path}: {problem}", file=sys.stderr)
            failed = True
sys.exit(failed)
