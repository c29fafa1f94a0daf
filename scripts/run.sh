#!/usr/bin/env bash
# The main job, from nothing: a report is made for the sample agency, filled, calculated and summed up.
#   scripts/run.sh [FISCAL-YEAR] [REPORT.CRF]
# FISCAL-YEAR is a folder of samples/: fy1999, fy2000 or fy2016 (the default).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

year=${1:-fy2016}
sample=samples/$year
[ -f "$sample/report.sh" ] || { echo "There is no sample $year. There are: $(cd samples && echo fy*)" >&2; exit 2; }
report=${2:-build/$year.CRF}

need_packages "${kProgramPackages[@]}"
# The program alone: what only the tests need is not asked for.
kConfigure=(-DTALLMAR_TESTS=OFF -DTALLMAR_BENCH=OFF)
build_preset release tallmar
tallmar=build/release/bin/tallmar

# The identity of the report: provider, start, end, name.
. "$sample/report.sh"
"$tallmar" new "$report" --provider "$provider" --start "$start" --end "$end" --name "$name"
"$tallmar" enter "$report" "$sample/cells.csv"
"$tallmar" calc "$report"
scripts/summary.sh "$report"
