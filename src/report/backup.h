// The last good state: a copy of the report as it was opened, in the user's data folder.
#pragma once

namespace tallmar {

// Called by every job before it changes the report, outside a Job: the first call since opening keeps a copy of the
// file; the newest five a report stay. Troubles are passed over: a report is never held up for its backup.
void Keep_Backup();
// A report was opened, and is unchanged.
void Expect_Backup();
// The report needs no backup: none is open, or it is new.
void Forget_Backup();

}  // namespace tallmar
