#!/usr/bin/env bash
# paquet.sh [FOLDER]: builds the program and makes its Debian package in FOLDER, this one without it.
set -euo pipefail
dossier="$(realpath "${1:-.}")"
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/installer.sh
scripts/construire.sh dev vela textes_installation
cpack --config build/dev/CPackConfig.cmake -B build/dev/paquet >build/paquet.log || { cat build/paquet.log >&2; exit 1; }
cp build/dev/paquet/vela_*.deb "$dossier"
ls "$dossier"/vela_*.deb
