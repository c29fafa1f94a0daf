// What the open report keeps of the answers on its worksheets.
#pragma once

namespace tallmar {

// Each family of the catalogue reads its own. A worksheet that is missing has no answers; throws DbError where the file
// itself fails.
void Load_Answers();

}  // namespace tallmar
