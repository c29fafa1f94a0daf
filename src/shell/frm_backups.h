// The list of the backups that are kept. A copy of one can be opened.
#pragma once

#include <span>
#include <string>

#include "report/backup_list.h"
#include "shell/dialog.h"

namespace tallmar {

// `chosen` is filled with the path of a backup when the dialog is accepted, and must outlive it.
DialogPtr Make_Backups(QWidget* parent, std::span<const KeptBackup> backups, std::string& chosen);
// The list, then the file dialog for the copy, then the copy as the open report. A box where there is no backup.
void Open_A_Backup(QWidget* parent);

}  // namespace tallmar
