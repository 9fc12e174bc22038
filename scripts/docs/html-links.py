#!/usr/bin/env python3
"""html-links.py FOLDER: every link between the HTML pages of the folder leads to a file and a place in
it."""
import functools
import pathlib
import re
import sys

LINK = re.compile(r'(?:href|src|data)="([^"]*)"')
OUTSIDE = re.compile(r"[a-z]+:")


@functools.lru_cache(maxsize=None)
def text_of(page):
    return page.read_text(errors="ignore")


def leads_nowhere(page, link):
    path, _, place = link.partition("#")
    target = page.parent / path if path else page
    if not target.exists():
        return True
    return bool(place) and not re.search(f'(id|name)="{re.escape(place)}"', text_of(target))


def main(folder):
    pages = sorted(folder.glob("*.html"))
    dead = [f"{page.name}: {link}" for page in pages
            for link in sorted(set(LINK.findall(text_of(page))))
            if link and not OUTSIDE.match(link) and leads_nowhere(page, link)]
    print("\n".join(dead), end="\n" if dead else "", file=sys.stderr)
    return 1 if dead or not pages else 0


sys.exit(main(pathlib.Path(sys.argv[1])))
