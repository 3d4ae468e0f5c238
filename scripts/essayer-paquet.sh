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
dedans apt-get -qq update
dedans apt-get -qq install --yes --no-install-recommends /tmp/vela.deb >/dev/null 2>&1
dedans useradd --create-home geometre
utilisateur() { dedans runuser -u geometre -- env HOME=/home/geometre sh -ec "cd; $1"; }

utilisateur 'vela --version'
utilisateur 'cp -r /usr/share/doc/vela/examples .
    vela polygonale fermee examples/polygonale-fermee-grades.obs --rapport rapport.html \
        --dessin examples/chantier.dxf --placer --altitudes --compensee --enregistrer corrige.dxf >/dev/null
    vela apercu corrige.dxf -o corrige.png >/dev/null
    test -s corrige.png && test -s rapport.html'
# A code that is changed lands in the user's own folder: the installed one is not theirs to write.
utilisateur 'printf "(addcodept 777 \"ESSAI\")\n(princ (getvar \"CLAYER\"))\n" | vela executer - >/dev/null
    test "$(find .local/share -name defcodif | wc -l)" = 1'
utilisateur 'QT_QPA_PLATFORM=offscreen timeout 5 vela corrige.dxf || test $? = 124'
dedans apt-get -qq remove --yes vela >/dev/null
dedans test ! -e /usr/bin/vela
echo "Le paquet s'installe, travaille pour un utilisateur ordinaire et s'enlève."
