#!/usr/bin/env bash
# second-compiler.sh BUILD: does clang compile for Windows all that BUILD compiles with g++, without a
# warning? Nothing is linked. What has not changed comes from the compiler's cache.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
build=$1
[ -e "$build/compile_commands.json" ] || die "$build is not configured; run ./tev test"
export CCACHE_DIR=${CCACHE_DIR:-$cache/ccache} CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export work

mapfile -t clang < <(clang_options_for_windows)
clang=(clang++-14 "${clang[@]}")
# Two tests open a class by redefining a keyword, which g++ lets pass; g++ has warnings that clang has not.
allowed=(-Wno-keyword-macro -Wno-unknown-warning-option)

# One command a line, words kept apart by tabs: clang in place of the compiler's launcher and g++.
commands() {
    /usr/bin/python3 - "$build/compile_commands.json" "$root" "$work" "${#clang[@]}" "${clang[@]}" "${allowed[@]}" <<'PYTHON'
import json
import shlex
import sys

database, root, work, count, *words = sys.argv[1:]
clang, allowed = words[:int(count)], words[int(count):]
# A source that is compiled for several programs is compiled here once.
entries = {entry["file"]: entry for entry in json.load(open(database))
           if entry["file"].startswith(root + "/") and entry["file"].endswith(".cpp")}
for number, entry in enumerate(entries.values()):
    words = shlex.split(entry["command"])
    compiler = next(at for at, word in enumerate(words) if word.endswith("g++-posix"))
    output = words.index("-o") + 1
    words[output] = f"{work}/{number}.o"
    # Faster, and the same warnings.
    options = ["-O0" if word in ("-O2", "-O3") else word for word in words[compiler + 1:]
               if not word.startswith("-Wa,")]
    print("\t".join(["ccache"] + clang + options + allowed))
PYTHON
}

compile() {
    local words
    IFS=$'\t' read -ra words <<<"$1"
    cd "$build" &&
    "${words[@]}"
}
export -f compile
export build
commands >"$work/commands"
[ -s "$work/commands" ] || die "$build compiles nothing"
tr '\n' '\0' <"$work/commands" |
    xargs -0 -P "$(nproc)" -I {} bash -c 'compile "$1"' compile {} 2>"$work/errors" || {
    head -n 40 "$work/errors" >&2
    die "clang found something; mend it so that both compilers are content"
}
say "clang compiles $(wc -l <"$work/commands") sources"
