#!/usr/bin/env bash
# The reports that the tour opens: two fiscal years of the sample agency, calculated, and one with something to report.
#   tests/shots/reports.sh TALLMAR FOLDER
set -euo pipefail
tallmar=$1
folder=$2
samples=$(dirname "$0")/../../samples
# Nothing of these reports goes into the backups of who makes them.
unset XDG_DATA_HOME HOME

# make_report SAMPLE NAME
make_report() {
    local provider start end name
    # shellcheck source=/dev/null
    . "$samples/$1/report.sh"
    "$tallmar" new "$folder/$2.CRF" --provider "$provider" --start "$start" --end "$end" --name "$name"
    "$tallmar" enter "$folder/$2.CRF" "$samples/$1/cells.csv"
    "$tallmar" calc "$folder/$2.CRF"
}
make_report fy2016 fy2016
make_report fy1999 fy1999
make_report fy2016 messages
"$tallmar" sql "$folder/messages.CRF" 'DELETE FROM B1 WHERE LineNum IN (30, 31)' >/dev/null
