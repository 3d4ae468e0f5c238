#!/usr/bin/env bash
# Corrects a closed traverse, writes its report, places its stations in a site drawing, saves and draws that drawing.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

scripts/installer.sh
scripts/construire.sh dev vela

mkdir -p resultats
vela=build/dev/bin/vela
"$vela" polygonale fermee examples/polygonale-fermee-grades.obs \
    --rapport resultats/rapport.html \
    --dessin examples/chantier.dxf --placer --code 100 --altitudes --originale --compensee \
    --enregistrer resultats/chantier-corrige.dxf
echo
"$vela" info resultats/chantier-corrige.dxf
"$vela" apercu resultats/chantier-corrige.dxf -o resultats/chantier-corrige.png --taille 1600x1000 --fond sombre >/dev/null
cat <<FIN

Les résultats sont dans $PWD/resultats :
  rapport.html          le calcul de la polygonale, à ouvrir dans un navigateur
  chantier-corrige.dxf  le dessin : stations placées, polygonale observée et compensée
  chantier-corrige.png  l'image de ce dessin
FIN
