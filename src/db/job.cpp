#include <exception>

#include "db/connection.h"
#include "db/database.h"

namespace tallmar {

Job::Job(Database& database, Kind kind) : connection_(database.connection_), exceptions_(std::uncaught_exceptions()) {
    if (!connection_) throw DbError(DbErrorCode::DatabaseClosed);
    connection_->Begin_Job(kind);
}

Job::~Job() {
    if (!connection_) return;
    const bool unwinds = std::uncaught_exceptions() > exceptions_;
    try {
        // An inner job leaves it to the outermost one: the exception may be caught on the way there.
        if (unwinds && connection_->Is_Outermost_Job()) {
            Roll_Back();
        } else {
            Commit();
        }
    } catch (const std::exception&) {
        // Nothing of the job is in the file; callers that must know use Commit.
    }
}

void Job::Commit() {
    if (!connection_) return;
    const auto connection = std::move(connection_);
    connection->End_Job();
}

void Job::Write_Ahead() {
    if (connection_) connection_->Write_Job_Ahead();
}

void Job::Roll_Back() {
    if (!connection_) return;
    const auto connection = std::move(connection_);
    connection->Roll_Back_Job();
}

}  // namespace tallmar
