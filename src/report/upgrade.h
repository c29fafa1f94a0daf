// The upgrade chain: it brings a report to the tables that the present layout, the chart and the fiscal year ask for.
#pragma once

namespace tallmar {

// True where a step would change the open report.
bool CRF_Needs_Upgrade();
// Runs what is needed, as one job, under the message log "Junk", after a copy of the file as it was has been put beside
// it as "<name>.before-upgrade.CRF"; an older file of that name stays, and the copy is numbered: " (2)". A report that
// needs nothing is not written to. Throws where the copy fails.
void Upgrade_CRF();
// The same for an open report that is a copy of the program's own: no file is made, and no message shown.
void Upgrade_Copy();
// The same for a report whose fiscal year was moved (FYStart, FYEnd), inside the job that moves it: no copy, no log.
// Throws what a step throws; the job must then not be kept.
void Follow_Fiscal_Year();

}  // namespace tallmar
