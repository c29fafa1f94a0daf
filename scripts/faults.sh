#!/usr/bin/env bash
# Every fault that a command can meet, where the tests take a sample of them; then a minute of eight programs at one
# report. Takes a quarter of an hour.
#   scripts/faults.sh [COMMAND ...]     the faults of these alone: New, NewOver, Enter, Calc, SaveAs, SaveAsOver,
#                                       Compact, Sql, Select, Info, Dump
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh

need_packages "${kProgramPackages[@]}" "${kTestPackages[@]}"
build_preset release tallmar test_faults

tests=build/release/bin/test_faults
if [ $# -gt 0 ]; then
    filter=$(printf 'Command/Faults.*/%s:' "$@")
    exec "$tests" --all --gtest_filter="$filter"
fi
failed=0
"$tests" --gtest_list_tests --gtest_filter='Command/Faults.*' | awk '/^  / { print $1 }' |
    xargs -P "$(nproc)" -I{} "$tests" --all --gtest_brief=1 --gtest_filter="Command/Faults.{}" || failed=1
"$tests" --seconds=60 --gtest_filter='CrowdTest.*' || failed=1
exit $failed
