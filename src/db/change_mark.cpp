#include "db/change_mark.h"

#include <sqlite3.h>

#include "db/connection.h"

namespace tallmar {

ChangeMark Change_Mark(const Database& database) {
    db_detail::Connection& connection = db_detail::Access::Of(database);
    return {.file = connection.Single_Text("PRAGMA data_version"),
            .written = sqlite3_total_changes64(connection.Handle())};
}

}  // namespace tallmar
