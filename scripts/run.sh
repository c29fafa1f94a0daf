#!/usr/bin/env bash
# The main job, from nothing: a report is made for the sample agency, filled and calculated; one that is there already
# stays as it is. Where there is a display the desktop opens on it; where there is none it is summed up here.
#   scripts/run.sh [FISCAL-YEAR] [REPORT.CRF]
# FISCAL-YEAR is a folder of samples/: fy1999, fy2000 or fy2016 (the default).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

year=${1:-fy2016}
sample=samples/$year
[ -f "$sample/report.sh" ] || { echo "There is no sample $year. There are: $(cd samples && echo fy*)" >&2; exit 2; }
report=${2:-build/$year.CRF}
display=${DISPLAY:-${WAYLAND_DISPLAY:-}}

packages=("${kProgramPackages[@]}")
# Qt's way to a display without X.
[ -n "$display" ] && [ -z "${DISPLAY:-}" ] && packages+=(qt6-wayland)
need_packages "${packages[@]}"
# The programs alone: what only the tests need is not asked for.
kConfigure=(-DTALLMAR_TESTS=OFF -DTALLMAR_BENCH=OFF)
build_preset release tallmar tallmar1728
tallmar=build/release/bin/tallmar

# open_desktop: False where the display cannot be opened; what the desktop has to say comes when it ends.
open_desktop() {
    local words status=0
    words=$(mktemp)
    (build/release/bin/tallmar1728 "$report"; exit $?) 2>"$words" || status=$?
    if [ "$status" -ne 0 ] && grep -qE 'could not connect to display|no Qt platform plugin' "$words"; then
        rm -f "$words"
        return 1
    fi
    cat "$words" >&2
    rm -f "$words"
    [ "$status" -eq 0 ] || exit "$status"
}

if [ -e "$report" ]; then
    echo "$report is there and stays as it is. To make it anew, delete it first."
else
    # The identity of the report: provider, start, end, name.
    . "$sample/report.sh"
    # It gets its name when it is complete.
    making=${report%.CRF}.making.CRF
    rm -f "$making" "$making-journal"
    "$tallmar" new "$making" --provider "$provider" --start "$start" --end "$end" --name "$name"
    "$tallmar" enter "$making" "$sample/cells.csv"
    "$tallmar" calc "$making"
    mv -n "$making" "$report"
fi
if [ -n "$display" ]; then
    open_desktop && exit
    echo "The display $display cannot be opened; here is the report in figures."
fi
scripts/summary.sh "$report"
