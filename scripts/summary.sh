#!/usr/bin/env bash
# A calculated report for the eye: identity, worksheet A, worksheet B with totals, in dollars.
#   scripts/summary.sh REPORT.CRF
# The lines are laid out by the report's own SQL dialect.
set -euo pipefail
report=$1
tallmar="$(dirname "$0")/../build/release/bin/tallmar"

# The lines of one statement, each a text L.
lines() { "$tallmar" sql "$report" "$1" | sed -e 's/^{"L":"//' -e 's/"}$//' -e 's/\\"/"/g' -e 's/\\\\/\\/g'; }
# An amount, right-aligned in 12 places.
amount() { echo "Right\$(Space\$(12) & IIF(IsNull($1),\"-\",Format($1,\"#,##0;(#,##0)\")),12)"; }
label='Right$(Space$(6) & Format(LineNum,"##0.00"),6) & "  " & Left$(CCName & Space$(36),36)'
rule() { printf '%*s\n' 92 '' | tr ' ' -; }
heads() { printf '%6s  %-36s%12s%12s%12s%12s\n' "$@"; }

lines 'SELECT ProviderName & "   Provider " & ProviderNumber & "   " & Format(FYStart,"mm/dd/yyyy") & " to " & Format(FYEnd,"mm/dd/yyyy") AS L FROM Master'
echo

echo "WORKSHEET A   RECLASSIFICATION AND ADJUSTMENT OF TRIAL BALANCE OF EXPENSES"
heads Line "Cost center" Total Reclass. Adjustments Net
rule
columns="$(amount Col_6) & $(amount Col_7) & $(amount Col_9) & $(amount Col_10)"
lines "SELECT $label & $columns AS L FROM A WHERE LineNum < 29 ORDER BY LineNum"
rule
lines "SELECT $label & $columns AS L FROM A WHERE LineNum = 29"
echo

echo "WORKSHEET B   COST ALLOCATION"
heads Line "Cost center" "Net expenses" Subtotal "A & G" Total
rule
# The columns behind the subtotal are the administrative and general ones: their sum is Total less SubTotal.
columns="$(amount NetExpenses) & $(amount SubTotal) & $(amount '(Total-SubTotal)') & $(amount Total)"
lines "SELECT $label & $columns AS L FROM B WHERE LineNum < 29 ORDER BY LineNum"
rule
lines "SELECT $label & $columns AS L FROM B WHERE LineNum = 29"
