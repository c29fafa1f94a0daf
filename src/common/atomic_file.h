// Files replaced in one step: at every moment the path holds the old content or the new one, whole, whatever becomes
// of the program. The content is flushed to the disk before it takes the path's name.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tallmar {

// Throws std::system_error with the system's own words: no such folder, no permission (also where the file that
// stands there is read only), disk full. Nothing has changed then. A link at `path` stays a link.
void Write_File_Atomically(const std::string& path, std::string_view bytes);

// The same for content that comes in pieces: `produce` hands them to the function it is given.
using FilePiece = std::function<void(std::string_view piece)>;
void Write_File_Atomically(const std::string& path, const std::function<void(const FilePiece&)>& produce);

// The content of `from` to `to`; `to` may be `from` itself. Never of a report with a job under way: the file would be
// caught half changed, and the job would lose its lock on it.
void Copy_File_Atomically(const std::string& from, const std::string& to);

// A replacement that was killed between its last two steps leaves "<path>.tmp", whole but without its name. It is
// removed here unless a replacement is just under way.
void Remove_Stale_Temporary(const std::string& path);

}  // namespace tallmar
