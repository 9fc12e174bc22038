#!/usr/bin/python3
"""sbom.py TREE VERSION GDAL: writes TREE/TEVSystemLib.spdx.json, the SPDX 2.3 list of what a package
holds: each file with its checksums, each third-party part with its version and licence. The time is
SOURCE_DATE_EPOCH. GDAL is the folder of GDAL's build."""
import datetime
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import uuid

NAME = "TEVSystemLib.spdx.json"
MAIN = "SPDXRef-Package-TEVSystemLib"
GDAL_DLL = "bin/libgdal-32.dll"
GCC = "GPL-3.0-or-later WITH GCC-exception-3.1"

# Linked into GDAL's DLL: what in the DLL shows it, the version as a group where the DLL tells it.
INSIDE_GDAL = [
    ("proj", "MIT", rb"Rel\. (\d+\.\d+\.\d+),"),
    ("nlohmann-json", "MIT", rb"proj_nlohmann"),
    ("zlib", "Zlib", rb" deflate (\d[\d.]+) Copyright"),
    ("minizip", "Zlib", rb"cpl_minizip_unzip.cpp"),
    ("libtiff", "libtiff", rb"LIBTIFF, Version (\d[\d.]+)"),
    ("libgeotiff", "MIT", rb"gdal_GTIFNew\0"),
    ("libpng", "libpng-2.0", rb" libpng version (\d[\d.]+)"),
    ("libjpeg", "IJG", rb"\0(6b)  27-Mar-1998"),
    ("giflib", "MIT", rb"gdal_DGifOpen\0"),
    ("json-c", "MIT", rb"json-c aborts"),
    ("qhull", "Qhull", rb"qhull_r (\d[\d.]+) "),
    ("lerc", "Apache-2.0", rb"lerc_encode\(\) failed"),
]
# In the scripts of the pages: likewise.
INSIDE_PAGES = {
    "docs/html/menu.js": [("doxygen", "MIT", rb"The MIT License")],
    "docs/html/jquery.js": [
        ("jquery", "MIT", rb"jQuery v(\d[\d.]+) "),
        ("jquery-ui", "MIT", rb"jQuery UI - v(\d[\d.]+)"),
        ("jquery-ui-touch-punch", "MIT", rb"Touch Punch (\d[\d.]+)"),
        ("jquery-scrollto", "MIT", rb"@author Ariel Flesler\s+\* @version (\d[\d.]+)"),
        ("jquery-powertip", "MIT", rb"PowerTip v(\d[\d.]+)"),
        ("smartmenus", "MIT", rb"SmartMenus jQuery Plugin - v(\d[\d.]+)"),
    ],
}
# What Debian ships: the DLLs of the compiler, its start code in each module, headers that are
# compiled into a program. File, part, package, licence.
FROM_DEBIAN = [
    ("bin/libstdc++-6.dll", "libstdc++", "gcc-mingw-w64-x86-64-posix-runtime", GCC),
    ("bin/libgcc_s_seh-1.dll", "libgcc", "gcc-mingw-w64-x86-64-posix-runtime", GCC),
    ("bin/libwinpthread-1.dll", "winpthreads", "mingw-w64-x86-64-dev", "MIT AND BSD-3-Clause"),
    ("bin/TEVSystemLib.dll", "MinGW-w64 start code", "mingw-w64-x86-64-dev", "ZPL-2.1"),
    ("bin/tevsys.exe", "CLI11", "libcli11-dev", "BSD-3-Clause"),
    ("bin/tevsys.exe", "JSON for Modern C++", "nlohmann-json3-dev", "MIT"),
]


def checksums(path):
    data = path.read_bytes()
    return [{"algorithm": name.upper(), "checksumValue": hashlib.new(name, data).hexdigest()}
            for name in ("sha1", "sha256")]


def file_entry(tree, path):
    name = path.relative_to(tree).as_posix()
    return {
        "fileName": "./" + name,
        "SPDXID": "SPDXRef-File-" + re.sub(r"[^A-Za-z0-9.-]", "-", name) + "-" +
                  hashlib.sha256(name.encode()).hexdigest()[:8],
        "checksums": checksums(path),
        "licenseConcluded": "NOASSERTION",
        "copyrightText": "NOASSERTION",
    }


def package(name, version, licence):
    return {
        "name": name,
        "SPDXID": "SPDXRef-Package-" + re.sub(r"[^A-Za-z0-9.-]", "-", name),
        "versionInfo": version,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": licence,
        "licenseDeclared": licence,
        "copyrightText": "NOASSERTION",
    }


def main_package(version, files):
    sums = sorted(file["checksums"][0]["checksumValue"] for file in files)
    code = hashlib.sha1("".join(sums).encode()).hexdigest()
    entry = package("TEVSystemLib", version, "NOASSERTION")
    entry["filesAnalyzed"] = True
    entry["packageFileName"] = f"TEVSystemLib-{version}-win64.zip"
    entry["packageVerificationCode"] = {
        "packageVerificationCodeValue": code,
        "packageVerificationCodeExcludedFiles": ["./" + NAME]}
    entry["licenseDeclared"] = "NONE"
    entry["licenseComments"] = "The owner has not chosen a licence; see licenses/TEVSystemLib.txt."
    entry["licenseInfoFromFiles"] = ["NOASSERTION"]
    return entry


def parts_of(tree, name, table, whole):
    """The parts that a file shows; one that does not tell its version is as old as the whole."""
    data = (tree / name).read_bytes()
    parts = []
    for part, licence, sign in table:
        found = re.search(sign, data)
        if not found:
            sys.exit(f"sbom: {name} shows no {part}; mend the table of its parts")
        parts.append(package(part, found.group(1).decode() if found.groups() else whole, licence))
    return parts


def page_packages(tree):
    """Of each script in the pages; none where the documentation was not built."""
    index = tree / "docs/html/index.html"
    if not index.exists():
        return {}
    doxygen = re.search(r"Doxygen (\d[\d.]+)", index.read_text()).group(1)
    return {name: parts_of(tree, name, table, doxygen) for name, table in INSIDE_PAGES.items()}


def gdal_packages(tree, gdal):
    text = (gdal / "lib/cmake/gdal/GDALConfigVersion.cmake").read_text()
    version = re.search(r'PACKAGE_VERSION "([\d.]+)"', text).group(1)
    header = (gdal / "include/sqlite3.h").read_text()
    sqlite = re.search(r'define SQLITE_VERSION +"([\d.]+)"', header).group(1)
    sqlite_sign = b"\0(" + re.escape(sqlite).encode() + b")\0"
    parts = [package("gdal", version, "MIT")]
    parts[0]["licenseConcluded"] = "NOASSERTION"
    parts[0]["licenseComments"] = "MIT; single files have others of the kind, see licenses/gdal.txt."
    table = INSIDE_GDAL + [("sqlite3", "blessing", sqlite_sign)]
    return parts + parts_of(tree, GDAL_DLL, table, f"the copy in GDAL {version}")


def debian_package(name, debian, licence):
    version = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", debian], check=True,
                             capture_output=True, text=True).stdout
    entry = package(name, version, licence)
    entry["externalRefs"] = [{
        "referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
        "referenceLocator": f"pkg:deb/debian/{debian}@{version.replace('+', '%2B')}"}]
    return entry


def relation(left, kind, right):
    return {"spdxElementId": left, "relationshipType": kind, "relatedSpdxElement": right}


def document(tree, version, gdal):
    paths = sorted(path for path in tree.rglob("*") if path.is_file() and path.name != NAME)
    files = [file_entry(tree, path) for path in paths]
    ids = {file["fileName"][2:]: file["SPDXID"] for file in files}
    inside = gdal_packages(tree, gdal)
    packages = [main_package(version, files)] + inside
    relations = [relation("SPDXRef-DOCUMENT", "DESCRIBES", MAIN)]
    relations += [relation(MAIN, "CONTAINS", file["SPDXID"]) for file in files]
    relations.append(relation(ids[GDAL_DLL], "GENERATED_FROM", inside[0]["SPDXID"]))
    relations += [relation(inside[0]["SPDXID"], "STATIC_LINK", part["SPDXID"]) for part in inside[1:]]
    for script, parts in page_packages(tree).items():
        packages += parts
        relations += [relation(ids[script], "GENERATED_FROM", part["SPDXID"]) for part in parts]
    linked = [inside[0]]
    for file, name, debian, licence in FROM_DEBIAN:
        packages.append(debian_package(name, debian, licence))
        relations.append(relation(ids[file], "GENERATED_FROM", packages[-1]["SPDXID"]))
        linked += packages[-1:] if file.startswith("bin/lib") else []
    relations += [relation(MAIN, "DYNAMIC_LINK", part["SPDXID"]) for part in linked]
    created = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]),
                                              datetime.timezone.utc)
    content = json.dumps([packages, files], sort_keys=True)
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"TEVSystemLib-{version}-win64",
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, content)}",
        "creationInfo": {"created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
                         "creators": ["Tool: sbom.py-" + version]},
        "packages": packages,
        "files": files,
        "relationships": relations,
    }


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[1])
    made = document(folder, sys.argv[2], pathlib.Path(sys.argv[3]))
    (folder / NAME).write_text(json.dumps(made, indent=2) + "\n")
