// Paths of report files: both \ and / separate folders.
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

// The name that the report has beside its own while it is compacted.
inline constexpr std::string_view kTemporaryName = "QVRTemp.CRF";

// The folder without a separator at its end; "C:\" where the path has none.
std::string Folder_Of(std::string_view path);
std::string File_Title_Of(std::string_view path);
// The path under which the file system knows the file: every separator is /.
std::string Native_Path(std::string_view path);
// The folder on disk that `CRFDir` means: the working folder where CRFDir comes from a bare name.
std::string Real_Folder(std::string_view path, std::string_view folder);
// False for drives A and B, which are never remembered.
bool Is_Remembered_Folder(std::string_view folder);
// The folder where file dialogs start: the one remembered, else the program's own, or where that cannot be written the
// user's documents.
std::string Dialog_Folder();

}  // namespace tallmar
