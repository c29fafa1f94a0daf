#include "common/db/connection.h"

namespace tallmar {

Job::Job(Database& database, Kind kind) : connection_(database.connection_) {
    if (!connection_) throw DbError(DbErrorCode::DatabaseClosed);
    connection_->Begin_Job(kind);
}

Job::~Job() {
    try {
        Commit();
    } catch (const DbError&) {
        // Nothing of the job is in the file; who must know calls Commit himself.
    }
}

void Job::Commit() {
    if (!connection_) return;
    const auto connection = std::move(connection_);
    connection->End_Job();
}

void Job::Roll_Back() {
    if (!connection_) return;
    const auto connection = std::move(connection_);
    connection->Roll_Back_Job();
}

}  // namespace tallmar
