#!/usr/bin/env bash
# What is installed runs, and what the menu entry names is there.
#   tests/packaging/install.sh BUILD-FOLDER
set -euo pipefail
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cmake --install "$1" --prefix "$place" >/dev/null
entry=$place/share/applications/tallmar1728.desktop
value() { sed -n "s/^$1=//p" "$entry"; }
fail() { echo "$1" >&2; exit 1; }

"$place/bin/tallmar" --version | grep -q '^tallmar ' || fail "tallmar does not run"
program=$(value Exec)
[ -x "$place/bin/${program%% *}" ] || fail "The menu entry starts $program, which is not there"
[ -f "$place/share/icons/hicolor/scalable/apps/$(value Icon).svg" ] || fail "The menu entry has no icon"
grep -q "type=\"$(value MimeType | tr -d ';')\"" "$place"/share/mime/packages/*.xml || fail "No file type for the entry"
