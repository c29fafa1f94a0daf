// The backups that are kept, to choose one from. Reading the list changes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/value.h"

namespace tallmar {

struct KeptBackup {
    std::string path;
    std::string report;  // the path of the report that it is of, or its bare name where the path is not known
    Date taken;          // 0 where its name does not say
    long number = 0;     // counts over all reports, whatever the clock says; 0 where it has none
    std::uintmax_t size = 0;
};

// Of all reports, the newest first.
std::vector<KeptBackup> Kept_Backups();
// Whether one of the report at `path` is kept.
bool Has_Backup(const std::string& path);

}  // namespace tallmar
