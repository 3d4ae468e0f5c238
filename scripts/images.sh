#!/usr/bin/env bash
# images.sh [SCENARIO...]: makes the guide's pictures of dialogs anew, docs/images/dialogues/*.png, with the dialogs of the
# built program: the scenarios of tests/scenarios say where, by their "image:" lines.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scripts/construire.sh dev vela

[[ $# -gt 0 ]] || mapfile -t tous < <(grep -lE '^ *image *:' tests/scenarios/*.scr)
mkdir -p docs/images/dialogues
for scenario in "${@:-${tous[@]}}"; do
    python3 tests/scenarios/run_scenario.py build/dev/bin/vela "$scenario" docs/images/dialogues
done
