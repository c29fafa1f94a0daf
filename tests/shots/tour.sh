#!/usr/bin/env bash
# The tour without a display: the whole program through every station. Fails where one cannot be reached.
#   tests/shots/tour.sh TALLMAR DESKTOP_SHOTS
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$(dirname "$0")/reports.sh" "$1" "$work"
"$2" "$work" "$work/pictures" 2>"$work/words" || { cat "$work/words" >&2; exit 1; }
# Every line of the index has its picture.
listed=$(grep -c '^- ' "$work/pictures/README.md")
[ "$listed" -gt 0 ]
[ "$listed" -eq "$(find "$work/pictures" -name '*.png' -size +0 | wc -l)" ]
