#!/usr/bin/env bash
# Within a mount namespace of its own: binds the machine's folders into the root of the 32-bit Wine, and runs the program
# there. Only wine.sh calls it.
set -euo pipefail
while read -r folder; do
    mkdir -p "$LUMARIN_WINE_ROOT$folder"
    mount --rbind "$folder" "$LUMARIN_WINE_ROOT$folder"
done <<<"$LUMARIN_WINE_BINDS"
cp /etc/hosts /etc/resolv.conf "$LUMARIN_WINE_ROOT/etc/" 2>/dev/null || true
exec chroot "$LUMARIN_WINE_ROOT" /usr/bin/env --chdir="$LUMARIN_WINE_FOLDER" \
    WINESERVER=/usr/lib/wine/wineserver32 /usr/lib/wine/wine "$@"
