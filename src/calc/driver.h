// The calculation of the whole report.
#pragma once

namespace tallmar {

// Every worksheet in ascending level, by Item within a level: line breaks out of its texts, then its calculation. One
// job; its messages are listed at the end. An error inside one worksheet is reported, the rest of it skipped, and the
// chain goes on. Throws DbError where the file itself fails (full, read only); nothing is changed then.
void Calc_All();

}  // namespace tallmar
