#!/usr/bin/env bash
# construire.sh PRESET [TARGET...]: configures build/PRESET and builds the targets, all of them when none is named.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset="${1:?usage: construire.sh PRESET [TARGET...]}"
shift
cmake --preset "$preset" --log-level=WARNING >/dev/null
cmake --build "build/$preset" --parallel "$(nproc)" ${1:+--target "$@"} -- --quiet
