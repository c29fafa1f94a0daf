#!/usr/bin/env bash
# Fails where a test has kept something in the user's data folder, and names it.
#   tests/home.sh DATA-FOLDER
set -euo pipefail
kept=$(find "$1" -type f 2>/dev/null | head -20 || true)
rm -rf "$1"
[ -z "$kept" ] || { echo "A test has written into the user's data folder:"; echo "$kept"; exit 1; }
