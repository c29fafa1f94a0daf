// The report file as a whole: open, save under another name, close. One report is open at a time, in `db`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "report/open_report.h"

namespace tallmar {

// What a report is opened for. Reading changes nothing, and gives no message about what the form forbids: a report that
// is not of the present layout is then brought to it in a copy of the program's own, which `db` is until it is closed.
enum class OpenFor : std::uint8_t { Reading, Changing };

// Opens the report at `path` and brings it to the present layout. False where the user kept the forms of another
// report open, or the file cannot be used, another window having it open among the reasons: a box then names the file
// and the trouble, the file is untouched, and no report is open.
bool Report_Open(const std::string& path, OpenFor use = OpenFor::Changing);
// The same with the file dialog. False also when it was cancelled.
bool Report_Open_Dialog();
// Copies the open report to `path`, over what is there, of which a backup is kept, and goes on with the copy. CRFDir
// stays. False after the box that says so, that of a report in use or of a name that no report may have as well: the
// report is open under its old name then.
bool Report_Save_As(const std::string& path);
// The same for a job without a window: the report is closed, and the copy is not opened. `trouble` takes the reason
// that the box does not give.
bool Report_Copy_To(const std::string& path, std::string& trouble);
// The path that the dialog of Save As answers, which offers the present name. Nothing when it was cancelled.
std::optional<std::string> Ask_Save_As_Path();
bool Report_Save_As_Dialog();
// Repairs, compacts and closes. False where the user kept a form open; the report then stays open.
bool Report_Close();
// The same; `trouble` takes what prevented the repair and the compaction, and is empty where nothing did.
bool Report_Close(std::string& trouble);
// Closes the report as it is, without compaction: the end of a job without a window. A second name of the report that
// a killed close left behind goes. Nothing happens while no report is open.
void Report_Release();
bool Report_Is_Open();
// Closes the report and leaves the window without one.
void Forget_Report();

// A new empty database for CRFPath in `db`, in memory until Finish_CRF. False after the box "System Error".
bool CreateCRF();
// Writes what CreateCRF began to CRFPath in one step and opens it again; of a file that is there a backup is kept.
// False after the box "System Error": nothing is left behind, and a file at CRFPath is as it was. True with no report
// open, after the same box, where the report was made and could only not be opened again.
bool Finish_CRF();

// The open report is the one at `path`, by CRFPath, CRFDir and CRFTitle, and not opened yet.
void Take_Path(const std::string& path);

}  // namespace tallmar
