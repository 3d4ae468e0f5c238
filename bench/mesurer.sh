#!/usr/bin/env bash
# mesurer.sh [POINTS]: builds the release preset, then runs every benchmark on inputs generated in a temporary folder.
# POINTS is the size of the survey drawing, 100 000 by default. Exit status 1 when a bar is not held.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

points="${1:-100000}"
dossier="$(mktemp -d)"
trap 'rm -rf "$dossier"' EXIT
export TMPDIR="$dossier"
bin=build/release/bin

scripts/construire.sh release vela_bench_dessin vela_bench_planchers vela_bench_codec vela_bench_tables \
    vela_bench_symboles vela_bench_polygonale vela_bench_reseau vela_bench_outils vela_bench_echange \
    vela_bench_terrain \
    vela_bench_implantation vela_bench_image vela_bench_scripts vela_bench_lisp
"$bin/vela_bench_dessin" "$dossier/leve.dxf" --points "$points"

echo "load before: $(cut -d ' ' -f 1-3 /proc/loadavg), $(nproc) processors"
statut=0
mesurer() {
    local banc="$1"
    shift
    printf '\n== %s\n' "$banc"
    "$bin/$banc" "$@" || statut=1
}
mesurer vela_bench_planchers "$dossier/leve.dxf"
mesurer vela_bench_codec "$dossier/leve.dxf"
mesurer vela_bench_image "$dossier/leve.dxf"
mesurer vela_bench_tables
mesurer vela_bench_symboles
mesurer vela_bench_polygonale
mesurer vela_bench_reseau
mesurer vela_bench_outils
mesurer vela_bench_echange
mesurer vela_bench_terrain
mesurer vela_bench_implantation
mesurer vela_bench_scripts
mesurer vela_bench_lisp
echo
echo "load after: $(cut -d ' ' -f 1-3 /proc/loadavg)"
exit "$statut"
