// The upgrade chain that brings an older report to the present tables when it is opened.
#pragma once

#include <span>

namespace tallmar {

// One idempotent step. `needed` only reads.
struct UpgradeStep {
    const char* name;
    bool (*needed)();
    void (*run)();
};

// The steps that belong to worksheets, run after the removal of old worksheets and before S-2-1 is added. Installed
// once with the catalogue. Requires static storage.
void Install_Upgrade_Steps(std::span<const UpgradeStep> steps);
// True where a step would change the open report.
bool CRF_Needs_Upgrade();
// Runs what is needed, as one job, under the message log "Junk", after a copy of the file as it was has been put beside
// it as "<name>.before-upgrade.CRF". A report that needs nothing is not written to. Throws where the copy fails.
void Upgrade_CRF();

}  // namespace tallmar
