#!/usr/bin/env bash
# Renders the icons that are installed as pictures, for desktops that do not draw SVG, from their drawings. To be run when
# a drawing has changed; the pictures are kept in the tree.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages librsvg2-bin
cd "$ROOT/resources/icons"
# render DRAWING CONTEXT NAME: the drawing in each size as hicolor/SIZE/CONTEXT/NAME.png
render() {
    local size
    for size in 48 128; do
        mkdir -p "hicolor/${size}x$size/$2"
        rsvg-convert -w "$size" -h "$size" "$1" -o "hicolor/${size}x$size/$2/$3.png"
    done
}
render tabulon.svg apps com.tabulon.Tabulon
render document.svg mimetypes application-x-tabulon-bookmarks
