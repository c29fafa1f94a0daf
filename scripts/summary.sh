#!/usr/bin/env bash
# A calculated report for the eye, in dollars: identity, worksheet A, worksheet B with totals, the settlement on D Part
# II and what is due by part on S Part II.
#   scripts/summary.sh REPORT.CRF
# The lines are laid out by the report's own SQL dialect.
set -euo pipefail
report=$1
tallmar="$(dirname "$0")/../build/release/bin/tallmar"

# The lines of one statement, each a text L.
lines() { "$tallmar" sql "$report" "$1" | sed -e 's/^{"L":"//' -e 's/"}$//' -e 's/\\"/"/g' -e 's/\\\\/\\/g'; }
# An amount, right-aligned in 12 places.
amount() { echo "Right\$(Space\$(12) & IIF(IsNull($1),\"-\",Format($1,\"#,##0;(#,##0)\")),12)"; }
# label LINE NAME WIDTH: the line number and the name in WIDTH places.
label() { echo "Right\$(Space\$(6) & Format($1,\"##0.00\"),6) & \"  \" & Left\$($2 & Space\$($3),$3)"; }
rule() { printf '%*s\n' 92 '' | tr ' ' -; }
heads() { printf '%6s  %-36s%12s%12s%12s%12s\n' "$@"; }

lines 'SELECT ProviderName & "   Provider " & ProviderNumber & "   " & Format(FYStart,"mm/dd/yyyy") & " to " & Format(FYEnd,"mm/dd/yyyy") AS L FROM Master'
echo

echo "WORKSHEET A   RECLASSIFICATION AND ADJUSTMENT OF TRIAL BALANCE OF EXPENSES"
heads Line "Cost center" Total Reclass. Adjustments Net
rule
columns="$(amount Col_6) & $(amount Col_7) & $(amount Col_9) & $(amount Col_10)"
lines "SELECT $(label LineNum CCName 36) & $columns AS L FROM A WHERE LineNum < 29 ORDER BY LineNum"
rule
lines "SELECT $(label LineNum CCName 36) & $columns AS L FROM A WHERE LineNum = 29"
echo

echo "WORKSHEET B   COST ALLOCATION"
heads Line "Cost center" "Net expenses" Subtotal "A & G" Total
rule
# The columns behind the subtotal are the administrative and general ones: their sum is Total less SubTotal.
columns="$(amount NetExpenses) & $(amount SubTotal) & $(amount '(Total-SubTotal)') & $(amount Total)"
lines "SELECT $(label LineNum CCName 36) & $columns AS L FROM B WHERE LineNum < 29 ORDER BY LineNum"
rule
# Line 29 keeps no such sum: it is made of the lines above.
on29() { echo "Sum(IIF(LineNum = 29,$1,0))"; }
columns="$(amount "$(on29 NetExpenses)") & $(amount "$(on29 SubTotal)") & $(amount 'Sum(Total-SubTotal)') & $(amount "$(on29 Total)")"
lines "SELECT $(label 'Max(LineNum)' 'Max(IIF(LineNum = 29,CCName,""))' 36) & $columns AS L FROM B WHERE LineNum >= 6"

# settlement TABLE WHERE: the lines of a worksheet with Part A in column 1 and Part B in column 2.
settlement() {
    lines "SELECT $(label LineNum Description 60) & $(amount Col_1) & $(amount Col_2) AS L FROM $1 WHERE $2 ORDER BY LineNum"
}
settlement_heads() { printf '\n%s\n%6s  %-60s%12s%12s\n' "$1" Line Description "Part A" "Part B"; rule; }

settlement_heads "WORKSHEET D PART II   COMPUTATION OF REIMBURSEMENT SETTLEMENT"
settlement Dp2 'LineNum IN (12, 18, 25, 27, 28, 29)'

settlement_heads "WORKSHEET S PART II   DUE TO THE AGENCY, OR (TO THE PROGRAM)"
settlement Sp2 'LineNum < 4'
rule
settlement Sp2 'LineNum = 4'
