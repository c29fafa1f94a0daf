#include "report/step.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <new>

#include "report/build_worksheet.h"
#include "report/open_report.h"
#include "report/store.h"
#include "support/report_fixture.h"

namespace tallmar {
namespace {

TEST(RunStep, ATroubleOfTheFileOrTheMemoryEndsTheRun) {
    const Report report(fy2016);
    EXPECT_THROW(Run_Step("A", [] { throw DbError(DbErrorCode::OutOfMemory); }), DbError);
    EXPECT_THROW(Run_Step("A", [] { throw DbError(DbErrorCode::FolderReadOnly, "a.CRF"); }), DbError);
    EXPECT_THROW(Run_Step("A", [] { throw DbError(DbErrorCode::CannotOpen, "a.CRF"); }), DbError);
    EXPECT_THROW(Run_Step("A", [] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(RunStep, ATroubleOfAStatementIsReportedAndTheNextStepFollows) {
    Report report(fy2016);
    report.platform.Expect_Box("Error: Worksheet A", "Unknown field 'Colour'");
    EXPECT_FALSE(Run_Step("A", [] { throw DbError(DbErrorCode::UnknownField, "Colour"); }));
    EXPECT_TRUE(Run_Step("A", [] {}));
}

TEST(BuildWorksheet, AnOldTableThatCannotBeDeletedIsTheError) {
    const Report report(fy2016);
    ASSERT_TRUE(Finish_CRF());
    const std::string path = db.Path();
    db.Close();
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    db = DBEngine::OpenDatabase(path);
    try {
        Build_Worksheet("S21");
        FAIL();
    } catch (const DbError& error) {
        EXPECT_EQ(error.Code(), DbErrorCode::ReadOnly) << error.Description();
    }
}

}  // namespace
}  // namespace tallmar
