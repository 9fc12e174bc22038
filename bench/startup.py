"""What loading the DLL takes beside its time: size, memory, imports."""

import re
import subprocess

from measurements import median, number, read_run


def imports(objdump, dll):
    """The DLLs that one needs, and how many functions of them."""
    text = subprocess.run([objdump, "-p", dll], check=True, capture_output=True, text=True).stdout
    tables = text.partition("The Import Tables")[2].partition("The Export Tables")[0]
    return (len(re.findall(r"DLL Name:", tables)),
            len(re.findall(r"^\t[0-9a-f]+\t", tables, flags=re.M)))


def memory(results):
    bytes_of = {}
    for entry in read_run(results / "start.json")["benchmarks"]:
        if entry["run_type"] == "iteration":
            bytes_of.setdefault(entry["name"].split("/")[2], []).append(entry["bytes"])
    return median(bytes_of["ours"]), median(bytes_of["limit"])


def table(results, dll, empty, objdump):
    ours, limit = imports(objdump, dll), imports(objdump, empty)
    facts = [("size of the file", dll.stat().st_size, empty.stat().st_size, "bytes"),
             ("memory", *memory(results), "bytes"),
             ("DLLs imported", ours[0], limit[0], ""),
             ("functions imported", ours[1], limit[1], "")]
    text = "\n| | TEVSystemLib.dll | an empty DLL | ratio |\n|---|--:|--:|--:|\n"
    for name, one, other, unit in facts:
        ratio = number(one / other) if other > 0 else "-"
        text += f"| {name} | {one:,.0f} {unit} | {other:,.0f} {unit} | {ratio} |\n"
    return text
