#!/usr/bin/env python3
"""Checks that each link of the HTML files in a folder leads to a file and a place that are there. Fetches nothing."""
import html.parser
import pathlib
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.places = set()
        self.links = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.places.update(values[name] for name in ("id", "name") if values.get(name))
        self.links += [values[name] for name in ("href", "src") if values.get(name)]


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    pages = {path: Page(path.read_text(encoding="utf-8")) for path in sorted(folder.rglob("*.html"))}
    broken = 0
    checked = 0
    for path, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc:
                continue
            checked += 1
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            place = urllib.parse.unquote(parts.fragment)
            is_there = target.is_file() and (not place or target not in pages or place in pages[target].places)
            if not is_there:
                broken += 1
                print(f"{path.relative_to(folder)}: {link} leads nowhere", file=sys.stderr)
    print(f"{len(pages)} pages, {checked} links, {broken} of them broken")
    return 1 if broken or not pages else 0


sys.exit(main())
