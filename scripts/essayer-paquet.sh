#!/usr/bin/env bash
# essayer-paquet.sh PACKAGE.deb: installs the package into a bare Debian 12 made for it, and uses it there as an ordinary
# user. Run as root, with debootstrap installed; packages come from where this machine has its own.
set -euo pipefail
paquet="$(realpath "${1:?usage: essayer-paquet.sh PACKAGE.deb}")"

racine="$(mktemp -d --tmpdir vela-paquet.XXXXXX)"
chmod 755 "$racine" # its users are not root
trap 'umount "$racine/proc" 2>/dev/null || true; rm -rf --one-file-system "$racine"' EXIT
miroir="$(apt-get indextargets --format '$(SITE)' | head -n 1)"
debootstrap --variant=minbase bookworm "$racine" "$miroir" >/dev/null 2>&1
cp -a /etc/apt/apt.conf.d/. "$racine/etc/apt/apt.conf.d/"
cp "$paquet" "$racine/tmp/vela.deb"
chmod 644 "$racine/tmp/vela.deb"
mount -t proc proc "$racine/proc"

dedans() { chroot "$racine" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
paquets() { dedans apt-get -qq -o Dpkg::Use-Pty=0 "$@"; }
paquets update
paquets install --yes --no-install-recommends /tmp/vela.deb >/dev/null 2>&1
paquets install --yes --no-install-recommends man-db bash-completion desktop-file-utils >/dev/null 2>&1
dedans useradd --create-home geometre
utilisateur() { dedans runuser -u geometre -- env HOME=/home/geometre sh -ec "cd; $1"; }

utilisateur 'vela --version'
utilisateur 'cp -r /usr/share/doc/vela/examples .
    vela polygonale fermee examples/polygonale-fermee-grades.obs --rapport rapport.html \
        --dessin examples/chantier.dxf --placer --altitudes --compensee --enregistrer corrige.dxf >/dev/null
    vela apercu corrige.dxf -o corrige.png >/dev/null
    test -s corrige.png && test -s rapport.html'
# What the guide leads to.
utilisateur 'cd /usr/share/doc/vela
    for lien in $(grep -oh "]([^):#]*" ./*.md | cut -c3-); do
        test -e "$lien" || { echo "$lien manque" >&2; exit 1; }
    done'
# Libraries that are loaded when they are asked for.
utilisateur 'vela points exporter corrige.dxf -o corrige.geojson --projection EPSG:2154 >/dev/null && test -s corrige.geojson'
# The DWG converter, and what a desktop asks of a package.
cp "$(dirname "${BASH_SOURCE[0]}")/../tests/host/dwg/leve.dwg" "$racine/tmp"
utilisateur 'vela convertir /tmp/leve.dwg leve.dxf && vela info --strict leve.dxf >/dev/null'
utilisateur 'MANPAGER=cat man vela | grep -q executer && MANPAGER=cat man /usr/share/man/fr/man1/vela.1.gz | grep -q executer'
dedans grep -q "^[0-9]*:image/vnd.dwg:\*.dwg$" /usr/share/mime/globs2
dedans grep -q "^image/vnd.dxf=vela.desktop;$" /usr/share/applications/mimeinfo.cache
dedans desktop-file-validate /usr/share/applications/vela.desktop
completions="$(utilisateur 'bash -c ". /usr/share/bash-completion/completions/vela
    COMP_WORDS=(vela conv) COMP_CWORD=1 && _vela && echo \${COMPREPLY[*]}
    COMP_WORDS=(vela convertir --rep) COMP_CWORD=2 && _vela && echo \${COMPREPLY[*]}"')"
[[ $completions == $'convertir\n--reparer' ]] || { echo "Complétions : $completions" >&2; exit 1; }
# A code that is changed lands in the user's own folder: the installed one is not theirs to write.
utilisateur 'printf "(addcodept 777 \"ESSAI\")\n(princ (getvar \"CLAYER\"))\n" | vela executer - >/dev/null
    test "$(find .local/share -name defcodif | wc -l)" = 1'
utilisateur 'QT_QPA_PLATFORM=offscreen timeout 5 vela corrige.dxf || test $? = 124'
paquets remove --yes vela >/dev/null
dedans test ! -e /usr/bin/vela
echo "Le paquet s'installe, travaille pour un utilisateur ordinaire et s'enlève."
