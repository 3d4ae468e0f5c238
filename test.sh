#!/usr/bin/env bash
# Installs what is missing, builds, runs every test. Exit status 0 when all of them pass.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/installer.sh
scripts/construire.sh dev
ctest --preset dev --parallel "$(nproc)" --no-tests=error </dev/null
