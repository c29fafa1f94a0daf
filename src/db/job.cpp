#include "db/connection.h"
#include "db/database.h"

namespace tallmar {

Job::Job(Database& database, Kind kind) : connection_(database.connection_) {
    if (!connection_) throw DbError(DbErrorCode::DatabaseClosed);
    connection_->Begin_Job(kind);
}

Job::~Job() {
    if (connection_) connection_->Roll_Back_Job();
}

void Job::Keep() {
    if (!connection_) return;
    connection_->Keep_Job();
    connection_.reset();
}

void Job::Write_Ahead() {
    if (connection_) connection_->Write_Job_Ahead();
}

}  // namespace tallmar
