#!/bin/bash
# Installs a Wine that runs 32-bit programs, with the locales for code pages 1252 and 932. Debian has it as an i386
# package; where the i386 package lists are not whole, a small i386 Debian in a folder of the cache has it instead.
set -euo pipefail
cd "$(dirname "$0")"
source ./as-root.sh
source ./wine-paths.sh
export DEBIAN_FRONTEND=noninteractive

make_locales=(sh -c 'for language in en_US ja_JP; do localedef -i $language -f UTF-8 $language.UTF-8; done')

install_on_system() {
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
        as_root dpkg --add-architecture i386
        added=yes
    fi
    as_root apt-get update -q &&
        as_root apt-get install -y -q --no-install-recommends wine wine32:i386 locales &&
        as_root "${make_locales[@]}"
}

take_back_architecture() {
    if [[ ${added:-} == yes ]]; then
        as_root dpkg --remove-architecture i386
        as_root apt-get update -q
    fi
}

# The mirror that apt reads Debian's main archive from.
debian_mirror() {
    apt-get indextargets --format '$(SITE) $(CODENAME) $(COMPONENT)' 'Created-By: Packages' |
        awk '$2 == "bookworm" && $3 == "main" { print $1; exit }'
}

# In a mount namespace of its own, so that an interrupted run leaves no mounts; renamed when complete.
install_in_folder() {
    command -v debootstrap >/dev/null || as_root apt-get install -y -q --no-install-recommends debootstrap
    as_root rm -rf --one-file-system "$wine_root.new"
    as_root unshare --mount debootstrap --arch=i386 --variant=minbase --include=wine,wine32,locales \
        bookworm "$wine_root.new" "$(debian_mirror)"
    as_root chroot "$wine_root.new" "${make_locales[@]}"
    as_root rm -rf "$wine_root.new"/var/cache/apt/archives "$wine_root.new"/var/lib/apt/lists
    as_root mv "$wine_root.new" "$wine_root"
}

mkdir -p "$wine_cache"  # Wine makes its prefix there, but no folder above it
if ! system_has_wine32 && [[ ! -d $wine_root ]]; then
    if ! install_on_system; then
        echo "install-wine: no 32-bit Wine from the system's package lists, setting up $wine_root" >&2
        take_back_architecture
        install_in_folder
    fi
fi
# The first start makes drive C, which takes seconds; later ones find it.
./wine-run.sh cmd /c exit
