#!/usr/bin/env bash
# tidy.sh [COMMIT | FILE...]: clang-tidy over sources, and headers compiled alone; each source too is seen without what
# is precompiled. Without files: those changed since COMMIT, or since the branch left origin/main, or in the last
# commits when neither says more. Exit status 1 when there is a finding.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

cmake --preset tidy --log-level=WARNING >/dev/null
# Sources include what Qt's generators make.
mapfile -t generes < <(ninja -C build/tidy -t targets all | sed -n 's/^\([^/]*_autogen\): phony.*/\1/p')
cmake --build build/tidy --parallel "$(nproc)" --target "${generes[@]}" -- --quiet
exec python3 scripts/tidy.py "$@"
