#!/usr/bin/env bash
# Installs the program into a scratch prefix and checks the desktop entry and
# the .wld MIME type that a file manager reads. Validators that are missing
# are skipped.
set -euo pipefail
build_dir="$1"
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build_dir" --prefix "$prefix" >/dev/null

desktop="$prefix/share/applications/ferrolith.desktop"
mime="$prefix/share/mime/packages/ferrolith-wld.xml"
icon="$prefix/share/icons/hicolor/scalable/apps/ferrolith.svg"
for f in "$desktop" "$mime" "$icon" "$prefix/bin/ferrolith"; do
  [ -e "$f" ] || { echo "not installed: $f"; exit 1; }
done

grep -q '^MimeType=application/x-ferrolith-wld;$' "$desktop" || { echo "desktop entry lacks the MIME type"; exit 1; }
grep -q '^Exec=ferrolith %f$' "$desktop" || { echo "desktop entry does not pass the file"; exit 1; }
grep -q 'pattern="\*.wld"' "$mime" || { echo "MIME type lacks the *.wld pattern"; exit 1; }

if command -v desktop-file-validate >/dev/null; then desktop-file-validate "$desktop"; fi
if command -v xmllint >/dev/null; then xmllint --noout "$mime"; fi
# The MIME database built from the package knows the type.
if command -v update-mime-database >/dev/null; then
  grep -q 'application/x-ferrolith-wld' "$prefix/share/mime/globs2" || { echo "MIME database not updated"; exit 1; }
fi
echo "install ok"
