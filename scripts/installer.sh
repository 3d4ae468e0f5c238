#!/usr/bin/env bash
# Installs the packages of paquets.txt that this machine lacks, then the DWG converter; touches nothing when none is
# missing.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

journal="$(mktemp)"
trap 'rm -f "$journal"' EXIT
discretement() { "$@" </dev/null >>"$journal" 2>&1 || { cat "$journal" >&2; exit 1; }; }

mapfile -t voulus < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' paquets.txt | sort -u)
mapfile -t manquants < <(comm -23 <(printf '%s\n' "${voulus[@]}") \
    <(dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' "${voulus[@]}" 2>/dev/null |
        awk '$1 == "ii" { print $2 }' | sort -u))
# Node may have come from elsewhere than Debian, with an npm of its own.
command -v node >/dev/null || manquants+=(nodejs)
command -v npm >/dev/null || manquants+=(npm)

if [[ ${#manquants[@]} -gt 0 ]]; then
    racine=()
    if [[ $EUID -ne 0 ]]; then
        command -v sudo >/dev/null || { echo "À installer d'abord, en root : ${manquants[*]}" >&2; exit 1; }
        racine=(sudo)
    fi
    echo "Installation de : ${manquants[*]}"
    apt() {
        discretement "${racine[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=600 "$@"
    }
    apt update
    apt install --yes --no-install-recommends "${manquants[@]}"
fi

# npm leaves a copy of the lock file's contents with what it installed: older than the lock file, it is out of date.
cd ../host/dwg/convertisseur
if [[ ! node_modules/.package-lock.json -nt package-lock.json ]]; then
    echo "Installation du convertisseur de dessins DWG"
    discretement npm ci --ignore-scripts --no-audit --no-fund
fi
