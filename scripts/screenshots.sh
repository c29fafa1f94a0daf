#!/usr/bin/env bash
# The program in pictures: on a screen in memory the desktop is led through its forms, and docs/screens gets a picture
# of each and an index.
#   scripts/screenshots.sh [FOLDER]     FOLDER in place of docs/screens
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

pictures=${1:-docs/screens}
need_packages "${kProgramPackages[@]}" "${kTestPackages[@]}" "${kPicturePackages[@]}"
build_preset release tallmar desktop_shots
# The pictures show the path of a report.
work=/tmp/tallmar-tour
rm -rf "$work"
mkdir "$work"
trap 'rm -rf "$work"' EXIT
tests/shots/reports.sh build/release/bin/tallmar "$work"

# Windows with titles; the main one fills the screen by its own wish.
cat >"$work/jwmrc" <<'END'
<?xml version="1.0"?>
<JWM>
    <WindowStyle><Font>DejaVu Sans-9</Font><Height>24</Height></WindowStyle>
    <Desktops width="1" height="1"><Background type="solid">#5a6b78</Background></Desktops>
</JWM>
END
# shellcheck disable=SC2016  # expanded by the inner shell
xvfb-run -a -s "-screen 0 1280x800x24 -dpi 96" bash -c '
    jwm -f "$1/jwmrc" >/dev/null 2>&1 & manager=$!
    status=0
    build/release/bin/desktop_shots "$1" "$2" 2>"$1/words" || { status=$?; cat "$1/words" >&2; }
    kill "$manager"
    exit $status' -- "$work" "$pictures"
echo "$(find "$pictures" -name '*.png' | wc -l) pictures in $pictures, $(du -sh "$pictures" | cut -f1)"
