#!/usr/bin/env python3
"""links.py ROOT: every link between the files of the checkout leads somewhere.

Links of Markdown pages to files and to headings; mentions of a page as docs/... and, in scripts
and comments, of tests and scripts by path. Links into the network are not followed.
"""
import pathlib
import re
import subprocess
import sys

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
MENTION = re.compile(r"(?<![\w./-])((?:docs|scripts|tests|examples|cmake)/[\w./-]*\w\.(?:md|sh|py|txt|cmake))")
CODE = re.compile(r"^```.*?^```$|`[^`\n]*`", re.MULTILINE | re.DOTALL)


def files_of(root):
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                            cwd=root, capture_output=True, text=True, check=True).stdout
    return [root / name for name in listed.splitlines() if (root / name).is_file()]


def anchors_of(page):
    """As the usual viewers make them: lower case, blanks to dashes, no punctuation."""
    anchors = set()
    for heading in re.findall(r"^#+ (.*)$", CODE.sub("", page.read_text()), re.MULTILINE):
        anchors.add(re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-"))
    return anchors


def problems_of_page(page, root):
    for target in LINK.findall(CODE.sub("", page.read_text())):
        if re.match(r"[a-z]+:", target):
            continue
        path, _, anchor = target.partition("#")
        file = (page.parent / path).resolve() if path else page
        if not file.exists() or root not in file.parents:
            yield f"no file {target}"
        elif anchor and anchor not in anchors_of(file):
            yield f"no heading {target}"


def problems_of_text(file, root):
    for mention in MENTION.findall(file.read_text(errors="ignore")):
        if not (root / mention).exists():
            yield f"no file {mention}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    found = []
    for file in files_of(root):
        problems = list(problems_of_text(file, root))
        if file.suffix == ".md":
            problems += problems_of_page(file, root)
        found += [f"{file.relative_to(root)}: {problem}" for problem in problems]
    print("\n".join(found), end="\n" if found else "", file=sys.stderr)
    return 1 if found else 0


sys.exit(main())
