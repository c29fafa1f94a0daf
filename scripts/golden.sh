#!/usr/bin/env bash
# The golden reports of tests/golden.
#   scripts/golden.sh                     builds and runs their tests
#   scripts/golden.sh accept [REPORT ...] takes the tables that a failed test left in build/golden as the stored ones;
#                                         look at the difference and work it out before
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

case ${1:-test} in
test)
    need_packages "${kProgramPackages[@]}" "${kTestPackages[@]}"
    build_preset debug test_golden
    build/debug/bin/test_golden
    ;;
accept)
    shift
    if [ $# -eq 0 ]; then
        [ -d build/golden ] && mapfile -t reports < <(ls build/golden) || reports=()
    else
        reports=("$@")
    fi
    [ ${#reports[@]} -gt 0 ] || { echo "No golden report differs." >&2; exit 1; }
    for report in "${reports[@]}"; do
        differing=("build/golden/$report"/*.json)
        [ -f "${differing[0]}" ] || { echo "$report does not differ." >&2; exit 1; }
        cp "${differing[@]}" "tests/golden/$report/"
        rm -r "build/golden/$report"
        echo "$report"
    done
    ;;
*)
    echo "Usage: scripts/golden.sh [accept [REPORT ...]]" >&2
    exit 2
    ;;
esac
