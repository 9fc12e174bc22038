#!/usr/bin/python3
"""sbom-check.py TREE: is TREE/TEVSystemLib.spdx.json valid SPDX 2.3, as far as spdx.schema.json goes,
with licences that exist, references that lead somewhere and the files that are there? The schema is
checked by jsonschema, the licences by license-expression."""
import hashlib
import json
import pathlib
import sys

import jsonschema
import license_expression

NO_LICENCE = {"NONE", "NOASSERTION"}


def schema_errors(made):
    schema = json.loads((pathlib.Path(__file__).parent / "spdx.schema.json").read_text())
    checker = jsonschema.Draft7Validator(schema, format_checker=jsonschema.FormatChecker())
    return [f"{error.json_path}: {error.message}" for error in checker.iter_errors(made)]


def licence_errors(made):
    known = license_expression.get_spdx_licensing()
    used = {entry[key] for entry in made["packages"] + made["files"]
            for key in ("licenseConcluded", "licenseDeclared") if key in entry} - NO_LICENCE
    return [f"{text}: {error}" for text in sorted(used) for error in known.validate(text).errors]


def reference_errors(made):
    ids = [made["SPDXID"]] + [entry["SPDXID"] for entry in made["packages"] + made["files"]]
    errors = [f"{one} is there twice" for one in set(ids) if ids.count(one) > 1]
    ends = {relation[key] for relation in made["relationships"]
            for key in ("spdxElementId", "relatedSpdxElement")}
    errors += [f"{one} is referred to and not there" for one in ends - set(ids)]
    return errors + [f"{one} is referred to by nothing" for one in set(ids) - ends]


def file_errors(tree, made, name):
    listed = {entry["fileName"]: entry["checksums"] for entry in made["files"]}
    there = {"./" + path.relative_to(tree).as_posix(): path
             for path in tree.rglob("*") if path.is_file() and path.name != name}
    errors = [f"{one} is not both in the package and in the list" for one in listed.keys() ^ there.keys()]
    for one in listed.keys() & there.keys():
        data = there[one].read_bytes()
        errors += [f"{one} has another {item['algorithm']}" for item in listed[one]
                   if hashlib.new(item["algorithm"], data).hexdigest() != item["checksumValue"]]
    return errors


def check(tree, name="TEVSystemLib.spdx.json"):
    made = json.loads((tree / name).read_text())
    # The other checks read what the schema promises.
    return schema_errors(made) or (
        licence_errors(made) + reference_errors(made) + file_errors(tree, made, name))


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1]))
    for line in found:
        print("sbom: " + line, file=sys.stderr)
    sys.exit(1 if found else 0)
