"""The Python module at work: run it from the project's folder, or cell by cell in a notebook that reads "# %%".

MELK_CFG_PATH names the configuration; without it, the sample is asked.
"""

# %% Open a configuration directory
import os

import melkcfg

directory = melkcfg.open(os.environ.get("MELK_CFG_PATH", "configuration"))

# %% One value, with its number, its unit and the text that decides it
offset = directory.UFCurb["EU Passenger Car"]["suv"].FrontOffset
print(offset.number, offset.unit, "from", offset.origin)

# %% All categories of a standard beside each other
standard = directory.UFCurb["EU Passenger Car"]
for category in standard:
    answer = standard[category]
    print(f"{category:10} {answer.FrontOffset!s:>8} {answer.BackOffset!s:>8}")

# %% A query with a length: any unit of length will do
ellipses = directory.EyeEllipses
for name in ellipses:
    if ellipses.IsStandard2002(name).result:
        radii = ellipses.GetRadii2002(name, hPointTravel="13.3cm", cutoff=95)
        print(f"{name}: {radii.radiusX} x {radii.radiusY} x {radii.radiusZ} {radii.radiusX.unit}")

# %% The same as a table, for pandas and for spreadsheets
rows = directory.dump("UFCurb")
print(len(rows), "values; the first:", rows[0])

# %% What is wrong with the files
for finding in directory.check():
    print(finding)
