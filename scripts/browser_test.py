#!/usr/bin/env python3
"""Reads a report of the sample configuration in headless Chromium, and fails where it is not what a reader expects.

With a second argument, a directory, screenshots of pages and pictures are left there.
"""
import os
import sys
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

failures = []


def expect(condition, text):
    print(("ok    " if condition else "FAILED ") + text)
    if not condition:
        failures.append(text)


def browser(dark=False):
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--window-size=1300,1000", "--hide-scrollbars"):
        options.add_argument(argument)
    if dark:
        options.add_argument("--blink-settings=preferredColorScheme=0")
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    service = webdriver.chrome.service.Service("/usr/bin/chromedriver")
    return webdriver.Chrome(options=options, service=service)


# Where a value stands on the page by the labels of the panel's axes: a second opinion on the writer's own numbers.
BY_TICKS = """
const [panel, axis] = arguments;
const ticks = [...panel.querySelectorAll(`text[data-tick=${axis}]`)].map(t => {
  const box = t.getBoundingClientRect();
  return [parseFloat(t.textContent), axis === 'x' ? box.left + box.width / 2 : box.top + box.height / 2];
});
const [a, b] = [ticks[0], ticks[ticks.length - 1]];
return {value: a[0], at: a[1], perUnit: (b[1] - a[1]) / (b[0] - a[0])};
"""


def cell(page, configuration, title):
    """Opens what a standard says for a category and returns it."""
    section = next(s for s in page.find_elements(By.CSS_SELECTOR, "section.configuration")
                   if s.find_element(By.TAG_NAME, "h2").get_attribute("textContent") == configuration)
    found = next(d for d in section.find_elements(By.CSS_SELECTOR, "details.cell")
                 if d.find_element(By.TAG_NAME, "summary").get_attribute("textContent") == title)
    page.execute_script("arguments[0].open = true; arguments[0].scrollIntoView()", found)
    return found


def panel_of(found, title):
    return next(p for p in found.find_elements(By.CSS_SELECTOR, "g.panel") if p.get_attribute("data-title") == title)


def check_box(page, configuration, title, panel_title, field, layer, expected):
    """The outline of a shape on the screen, in the panel's unit: left, bottom, right, top."""
    panel = panel_of(cell(page, configuration, title), panel_title)
    shape = next(s for s in panel.find_elements(By.CSS_SELECTOR, f".{layer}[data-field]")
                 if s.get_attribute("data-field") == field and "w" not in s.get_attribute("class").split())
    outline = page.execute_script("const b = arguments[0].getBBox(), m = arguments[0].getScreenCTM();"
                                  "return [b.x * m.a + m.e, (b.y + b.height) * m.d + m.f,"
                                  " (b.x + b.width) * m.a + m.e, b.y * m.d + m.f]", shape)
    x = page.execute_script(BY_TICKS, panel, "x")
    y = page.execute_script(BY_TICKS, panel, "y")
    measured = [x["value"] + (outline[0] - x["at"]) / x["perUnit"], y["value"] + (outline[1] - y["at"]) / y["perUnit"],
                x["value"] + (outline[2] - x["at"]) / x["perUnit"], y["value"] + (outline[3] - y["at"]) / y["perUnit"]]
    nearest = 3.0 / abs(x["perUnit"])  # three pixels: labels stand beside their ticks within that
    expect(all(abs(m - e) <= nearest for m, e in zip(measured, expected)),
           f"{configuration}, {title}: {field} lies at {expected} (measured {[round(m, 1) for m in measured]})")


def check_filter(page):
    def visible(selector):
        return [e for e in page.find_elements(By.CSS_SELECTOR, selector) if e.is_displayed()]
    everything = len(visible("section.configuration"))
    words = page.find_element(By.ID, "words")
    words.send_keys("UFCurb FrontOffset suv")
    expect([s.find_element(By.TAG_NAME, "h2").text for s in visible("section.configuration")] == ["UFCurb"],
           "the search for words leaves the one configuration that has them")
    expect("entr" in page.find_element(By.ID, "found").text, "the number of entries is told")
    words.send_keys(Keys.CONTROL + "a", Keys.DELETE)
    expect(len(visible("section.configuration")) == everything, "an empty search shows all again")
    page.execute_script("const w = document.getElementById('which');"
                        "w.value = [...w.options].find(o => o.text === 'EyeEllipses').value;"
                        "w.dispatchEvent(new Event('input'))")
    expect(len(visible("section.configuration")) == 1, "the choice of a configuration leaves that one")
    page.execute_script("const w = document.getElementById('which'); w.value = ''; w.dispatchEvent(new Event('input'))")
    page.find_element(By.ID, "customers").click()
    shown = visible("details.cell")
    expect(0 < len(shown) and all("by-customer" in d.get_attribute("class") for d in shown),
           "only standards of Customer stay when that is wanted")
    page.find_element(By.ID, "customers").click()


def check_access(page):
    nameless = page.execute_script("""return [...document.querySelectorAll('input, select')].filter(e => !e.labels.length).length
        + [...document.querySelectorAll('svg[role=img]')].filter(e => !document.getElementById(e.getAttribute('aria-labelledby'))).length
        + [...document.querySelectorAll('th')].filter(e => !e.scope).length""")
    expect(nameless == 0, "controls have labels, pictures have titles, table headers have scopes")
    twice = page.execute_script("const ids = [...document.querySelectorAll('[id]')].map(e => e.id);"
                                "return ids.length - new Set(ids).size")
    expect(twice == 0, "no id is given twice")
    broken = page.execute_script("return [...document.querySelectorAll('a[href^=\"#\"]')]"
                                 ".filter(a => !document.getElementById(a.hash.slice(1))).length")
    expect(broken == 0, "every link leads somewhere")
    page.refresh()
    page.find_element(By.TAG_NAME, "body").send_keys(Keys.TAB)
    expect(page.switch_to.active_element.get_attribute("class") == "skip", "the first key press leads past the bar")


def check_links(page):
    link = page.find_element(By.CSS_SELECTOR, "table.matrix a")
    page.execute_script("arguments[0].click()", link)
    target = link.get_attribute("href").split("#")[1]
    expect(page.execute_script("return document.getElementById(arguments[0]).open", target),
           "a cell of the matrix opens what it leads to")


def main():
    address = Path(sys.argv[1]).resolve().as_uri()
    shots = Path(sys.argv[2]) if len(sys.argv) > 2 else None
    page = browser()
    try:
        page.get(address)
        check_filter(page)
        check_access(page)
        check_links(page)
        pictures = page.execute_script("return document.querySelectorAll('svg.drawing g.panel').length")
        expect(pictures > 300, f"the pictures are there ({pictures} panels)")
        check_box(page, "UFCurb", "EU Passenger Car · suv", "Front end", "FrontOffset", "d", [-930, 180, -345, 180])
        check_box(page, "UFCurb", "In-house 2024 · suv", "Front end", "FrontOffset", "c", [-930, 195, -345, 195])
        check_box(page, "FieldsOfView", "EU Passenger Car · default", "Field A", "A0", "d", [-13, -1, 20, 3])
        check_box(page, "NumberPlates", "EU Passenger Car · default", "Front plate, from the front", "FrontLowerLimit", "d",
                  [-260, 200, 260, 1200])
        check_box(page, "CrashBarriers", "In-house 2025 · default", "Side view", "barrier 1", "c", [-1150, 455, -900, 555])
        if shots:
            screenshots(page, shots)
        errors = [entry for entry in page.get_log("browser") if entry["level"] in ("SEVERE", "WARNING")]
        expect(not errors, "the console has no error" + "".join("\n  " + entry["message"] for entry in errors))
        requests = page.execute_script("return performance.getEntriesByType('resource').length")
        expect(requests == 0, "nothing else is loaded")
    finally:
        page.quit()
    if failures:
        sys.exit(f"{len(failures)} of the expectations failed")


def screenshots(page, directory):
    os.makedirs(directory, exist_ok=True)
    page.execute_script("document.querySelectorAll('details[open]').forEach(d => d.open = false); scrollTo(0, 0)")
    page.save_screenshot(str(directory / "top.png"))
    for number, (configuration, title) in enumerate([
            ("UFCurb", "In-house 2024 · suv"), ("EyeEllipses", "In-house Eye Ellipses · default"),
            ("FieldsOfView", "US Passenger Car · default"), ("Mirror", "US Passenger Car · default"),
            ("Bumpers", "EU Passenger Car · default"), ("HeadImpact", "US Passenger Car · default"),
            ("SRPLocationCurves", "Seat Location · default"), ("DirectView3D", "EU Passenger Car · default"),
            ("PPOffset", "EU Passenger Car · default"), ("ManikinTemplate", "Two-dimensional Template · default")]):
        found = cell(page, configuration, title)
        page.execute_script("arguments[0].querySelectorAll('details').forEach(d => d.open = true)", found)
        page.execute_script("arguments[0].scrollIntoView()", found)
        page.save_screenshot(str(directory / f"{number:02}-{configuration}.png"))


if __name__ == "__main__":
    main()
