#!/bin/sh
# Draws the pictures of the windows anew and compares them with the committed ones:
# compare_pictures.sh SOURCE_DIR BUILD_DIR COMPARE_PROGRAM
drawn=$(mktemp -d) || exit 3
trap 'rm -rf "$drawn"' EXIT
"$1/scripts/screenshots" "$2" "$drawn" > /dev/null || exit 3
"$3" "$1/docs/pictures" "$drawn"
