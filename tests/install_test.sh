#!/bin/sh
# Installs the build into a scratch prefix and checks what a desktop needs
# of it: both programs on the path, the menu entry, the icons at every size
# and the G-code file type.
#   install_test.sh CMAKE BUILD_DIR
set -eu
cmake=$1
build=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$cmake" --install "$build" --prefix "$prefix" >/dev/null

failed=0
fail() {
  echo "FAIL: $*" >&2
  failed=1
}

for program in korvexed korvexed-cli; do
  [ -x "$prefix/bin/$program" ] || fail "bin/$program is not an installed program"
done
entry=$prefix/share/applications/korvexed.desktop
mime=$prefix/share/mime/packages/korvexed.xml
icons=$prefix/share/icons/hicolor
for file in "$entry" "$mime" "$icons/scalable/apps/korvexed.svg"; do
  [ -s "$file" ] || fail "${file#"$prefix"/} is missing"
done

# Each PNG is as wide as its folder says (the width stands in bytes 16-19).
for size in 16 32 48 64 128 256; do
  png=$icons/${size}x$size/apps/korvexed.png
  if [ ! -s "$png" ]; then
    fail "${png#"$prefix"/} is missing"
    continue
  fi
  width=$(od -An -tu1 -j16 -N4 "$png" | awk '{ print (($1 * 256 + $2) * 256 + $3) * 256 + $4 }')
  [ "$width" = "$size" ] || fail "${png#"$prefix"/} is $width pixels wide"
done

if [ -s "$entry" ]; then
  desktop-file-validate "$entry" || fail "desktop-file-validate rejects the entry"
  grep -q '^Exec=korvexed %f$' "$entry" || fail "the entry does not start the installed editor with a file"
fi
if [ -s "$mime" ] && command -v xmllint >/dev/null; then
  xmllint --noout "$mime" || fail "the MIME package is not well-formed"
fi
# The file type as a desktop's MIME database takes it: *.g and *.gcode.
if [ -s "$mime" ] && command -v update-mime-database >/dev/null; then
  update-mime-database "$prefix/share/mime" 2>/dev/null || fail "update-mime-database rejects the package"
  for glob in '*.gcode' '*.g'; do
    grep -qxF "50:text/x.gcode:$glob" "$prefix/share/mime/globs2" || fail "$glob is not G-code to the MIME database"
  done
fi
exit $failed
