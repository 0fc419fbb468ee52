# For sourcing: where Wine and what belongs to it are kept, outside the source tree, from one run to the next.
wine_cache=${KALODATA_WINE_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/kalodata}
wine_root=$wine_cache/wine-root             # a small i386 Debian with 32-bit Wine, where the system has none
wine_prefix=$wine_cache/wine-prefix         # Windows' drive C, when Wine is the system's
rooted_prefix=/var/lib/wine-prefix-$(id -u) # the same inside wine_root

# The system's own Wine can run 32-bit programs.
system_has_wine32() {
    command -v wine >/dev/null && [[ $(dpkg-query -W -f '${Status}' wine32:i386 2>/dev/null) == *" installed" ]]
}
