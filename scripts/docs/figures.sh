#!/usr/bin/env bash
# figures.sh [--write]: is the graph of the layers the one of the sources, and each picture under
# docs/images drawn from the graph beside it? With --write makes both so; that needs graphviz.
. "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
cd "$root"
remedy="run scripts/docs/figures.sh --write and commit what it changes"

if [ "${1:-}" = --write ]; then
    command -v dot >/dev/null || die "no program dot; install graphviz"
    scripts/docs/layers.py . >docs/images/layers.dot
fi
scripts/docs/layers.py . | diff docs/images/layers.dot - ||
    die "docs/images/layers.dot (<) does not show what the sources include (>); $remedy"

for graph in docs/images/*.dot; do
    picture=${graph%.dot}.svg
    mark="<!-- drawn from $(sha256sum <"$graph" | cut -c1-32) -->"
    if [ "${1:-}" = --write ]; then
        { dot -Tsvg "$graph" && echo "$mark"; } >"$picture.new" && mv "$picture.new" "$picture"
    fi
    grep -qxF -- "$mark" "$picture" || die "$picture is not drawn from $graph; $remedy"
done
