#!/usr/bin/env bash
# fuzzer.sh SECONDS|NUMBERx [TARGET...]: runs each fuzz target over its corpus for that long, or for that many inputs
# from the same seed ("5000x"; all targets together then take four minutes at most, a slow one gets fewer inputs). Every
# target has its turn; those that found something are shown and named at the end.
# Targets are those that vela_fuzz declares; a finding is left in build/asan/trouvailles.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

duree="${1:?usage: fuzzer.sh SECONDS|NUMBERx [TARGET...]}"
shift
cmake --preset asan --log-level=WARNING >/dev/null
liste=build/asan/fuzz-targets.txt # lines "target corpus-folder", written when the preset is configured
[[ -s $liste ]] || { echo "No fuzz target."; exit 0; }

if [[ $duree == *x ]]; then
    limite=(-runs="${duree%x}" -seed=1 -max_total_time="$((240 / $(wc -l <"$liste")))")
else
    limite=(-max_total_time="$duree")
fi
mkdir -p build/asan/trouvailles
trouves=()
while read -r cible corpus; do
    [[ $# -eq 0 || " $* " == *" $cible "* ]] || continue
    cmake --build build/asan --parallel "$(nproc)" --target "$cible" -- --quiet
    acquis="build/asan/corpus/$cible" # what this run finds new goes there, not among the tracked files
    mkdir -p "$acquis"
    echo "$cible: $duree"
    journal="build/asan/$cible.log"
    UBSAN_OPTIONS=print_stacktrace=1 "build/asan/bin/$cible" "${limite[@]}" -rss_limit_mb=1500 -timeout=10 \
        -verbosity=0 -print_funcs=0 -artifact_prefix="build/asan/trouvailles/$cible-" "$acquis" "$corpus" \
        </dev/null >"$journal" 2>&1 || { trouves+=("$cible"); cut -c1-300 "$journal" | tail -n 60 >&2; }
done <"$liste"
[[ ${#trouves[@]} -eq 0 ]] || { echo "Found something: ${trouves[*]}" >&2; exit 1; }
