#!/usr/bin/env bash
# tidy.sh [COMMIT | FILE...]: clang-tidy over sources, and headers compiled alone; each source too is seen without what
# is precompiled. Without files: those changed since COMMIT, or since the branch left origin/main, or in the last
# commits when neither says more. Exit status 1 when there is a finding.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

cmake --preset tidy --log-level=WARNING >/dev/null
# Sources include what Qt's generators make. They are run by hand: their targets would wait for the libraries linked.
find build/tidy -name AutogenInfo.json -print0 | xargs -0 -P"$(nproc)" -I{} cmake -E cmake_autogen {} Debug >/dev/null
exec python3 scripts/tidy.py "$@"
