#!/usr/bin/env python3
"""includes.py ROOT: who may include what in the library. Foreign headers stand in few files, which are
listed here; installed headers include installed ones only; nothing prints."""
import fnmatch
import pathlib
import re
import sys

INCLUDE = re.compile(r"^\s*#\s*include [<\"]([^>\"]+)[>\"]", re.MULTILINE)
GDAL = ["util/file/TEVIO.cpp"]
WINDOWS = ["util/windows/*.cpp", "util/windows/detail/*", "util/string/TEVUtilString_Charset.cpp",
           "util/file/TEVUtilFile_Listing.cpp", "system/detail/LoaderState.cpp"]
FOREIGN = {
    **dict.fromkeys(["cpl_vsi.h", "cpl_string.h"], GDAL),
    **dict.fromkeys(["windows.h", "psapi.h", "objbase.h", "oleauto.h", "shlobj.h", "comdef.h", "rpc.h"],
                    WINDOWS),
    "immintrin.h": ["util/string/detail/wide/Vectors.h"],
    "intrin.h": ["util/string/detail/wide/Kernels.cpp"],
}
PRINTING = {"iostream", "ostream", "fstream", "print", "stdio.h"}


def complaint(file, name):
    """Why the file, named relative to the library's folder, must not include that; or nothing."""
    if name.startswith("TEVSystemLib/"):
        is_installed = file.endswith(".h") and "/detail/" not in file
        return "is not installed" if is_installed and "/detail/" in name else None
    if name in PRINTING:
        return "prints, which the library never does"
    if name.endswith(".h"):
        if not any(fnmatch.fnmatch(file, allowed) for allowed in FOREIGN.get(name, [])):
            return "is foreign to this file; scripts/check/includes.py tells who may include it"
    return None


def main(library):
    found = []
    for path in sorted([*library.rglob("*.h"), *library.rglob("*.cpp")]):
        file = path.relative_to(library).as_posix()
        for name in INCLUDE.findall(path.read_text()):
            why = complaint(file, name)
            found += [f"{file}: {name} {why}"] if why else []
    print("\n".join(found), end="\n" if found else "", file=sys.stderr)
    return 1 if found else 0


sys.exit(main(pathlib.Path(sys.argv[1]) / "TEVSystemLib"))
