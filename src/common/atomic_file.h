// Files placed in one step: at every moment the path holds the old content or the new one, whole, whatever becomes of
// the program. The content is flushed to the disk before it takes the path's name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tallmar {

// Throws std::system_error with the system's own words: no such folder, no permission (also where the file that
// is there is read only), disk full. Nothing has changed then. A link at `path` stays a link; owner, group and
// rights of the old file pass to the new one, as far as the user may give them. EBUSY where another program is
// replacing the same file.
void Write_File_Atomically(const std::string& path, std::string_view bytes);

// The same for content that comes in pieces: `produce` hands them to the function it is given.
using FilePiece = std::function<void(std::string_view piece)>;
void Write_File_Atomically(const std::string& path, const std::function<void(const FilePiece&)>& produce);

// The same over a file that `mayReplace` still agrees to, asked at the last moment, when no other program can be
// replacing the file. False, and nothing has changed, where it does not, or where the file has gone.
bool Replace_File_Atomically(const std::string& path, std::string_view bytes, const std::function<bool()>& mayReplace);

// A new file with the rights `mode`, less the user's mask. False, and nothing has changed, where there is a file of
// that name already: it is never replaced.
constexpr unsigned kUsualMode = 0666;
bool Create_File_Atomically(const std::string& path, std::string_view bytes, unsigned mode = kUsualMode);

// The content of `from` to `to`; `to` may be `from` itself. Never of a report with a job under way: the file would be
// caught half changed, and the job would lose its lock on it.
void Copy_File_Atomically(const std::string& from, const std::string& to);

// A replacement that was killed between its last two steps leaves "<path>.tallmar", a name that nobody else gives. It
// is removed here unless a replacement is just under way.
void Remove_Stale_Temporary(const std::string& path);

}  // namespace tallmar
