#include "screens/identity_cells.h"

#include <algorithm>
#include <array>

#include "common/dates.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/backup.h"
#include "report/open_report.h"
#include "screens/cell_check.h"
#include "structure/edit_key.h"

namespace tallmar {

namespace {

constexpr Currency kProviderLine = 2_cur;
constexpr Currency kYearLine = 7_cur;
constexpr std::string_view kFirst = "Col_1", kSecond = "Col_2";  // name and number; start and end

// The form that asks stays open.
constexpr std::string_view kForm = "frmEditS2";
constexpr std::string_view kYearStays = "The fiscal year was not changed.";
constexpr std::string_view kYearStaysWithForms = "The fiscal year was not changed, since forms are open.";

Refusal Refused(std::string_view title, std::string_view text, bool shown) {
    return {.title = std::string(title), .text = std::string(text), .shown = shown};
}

CellResult Answer_With(const EntryBox* box, const std::string& text) {
    if (box == nullptr) return Accept(text);
    return {.refusal = Refused(box->title, box->text, false), .value = Null, .filled = {}};
}

bool Is_Entered(const RowUnderEdit& row, std::string_view field) {
    return row.Entered().contains(field);
}

// As entered, else that of the report.
Date Date_In(const RowUnderEdit& row, std::string_view field, Date present) {
    if (!Is_Entered(row, field)) return present;
    return Parse_Date(Nz_Str(row[field])).value_or(present);
}

FiscalYear Year_In(const RowUnderEdit& row) {
    return {Date_In(row, kFirst, openReport.FYStart), Date_In(row, kSecond, openReport.FYEnd)};
}

CellResult Check_Start(std::string text) {
    Date start;
    const EntryBox* box = Check_FYStart(text, kStoredDates, start);
    return Answer_With(box, text);
}

// A blank that comes with many cells is no wish for another year.
CellResult Check_End(const CellPlace& place, std::string text) {
    if (text.empty() && place.talk.Is_Quiet()) text = " ";
    Date end;
    const EntryBox* box = Check_FYEnd(text, kStoredDates, Year_In(place.row).start, end);
    return Answer_With(box, text);
}

// What S-2 holds is the identity already, in whatever style it writes the dates.
bool Stands_On_S2(const Identity& identity, const RowUnderEdit& row) {
    const std::string first = Nz_Str(row.Stored(kFirst)), second = Nz_Str(row.Stored(kSecond));
    if (row.Line() == kProviderLine) return first == identity.facilityName && second == identity.providerNumber;
    return Parse_Date(first) == identity.year.start && Parse_Date(second) == identity.year.end;
}

// Nothing where the answer is yes.
std::optional<Refusal> Confirm(const EntryTalk& talk, std::string_view text, int buttons, std::string_view title) {
    const Answer answer = talk.Ask(Refused(title, text, false), buttons);
    if (answer == Answer::Yes) return std::nullopt;
    return Refused(title, kYearStays, answer != Answer::None);
}

std::optional<Refusal> Confirm_Year(const EntryTalk& talk, const FiscalYear& year) {
    if (const EntryBox* question = Long_Year_Question(year)) {
        if (auto refusal = Confirm(talk, question->text, question->buttons, question->title)) return refusal;
    }
    const std::string question = Change_Of_Year_Question(year.start);
    if (question.empty()) return std::nullopt;
    if (auto refusal = Confirm(talk, question, kChangeOfYearButtons, kChangeOfYearTitle)) return refusal;
    if (!talk.Close_Other_Forms(kForm)) return Refused(kChangeOfYearTitle, kYearStaysWithForms, true);
    return std::nullopt;
}

}  // namespace

bool Is_Identity_Cell(Currency line, std::string_view field) {
    return (line == kProviderLine || line == kYearLine) && (Same_Text(field, kFirst) || Same_Text(field, kSecond));
}

CellResult Check_Identity_Cell(const CellPlace& place, std::string_view text) {
    std::string entry(Trim(text));
    const bool isFirst = Same_Text(place.column.field, kFirst);
    if (place.row.Line() == kYearLine) return isFirst ? Check_Start(std::move(entry)) : Check_End(place, entry);
    const EntryBox* box = isFirst ? Check_Facility_Name(entry) : Check_Provider_Number(entry);
    return Answer_With(box, entry);
}

std::optional<Refusal> Leave_Identity_Row(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    if (row.Line() != kYearLine) return std::nullopt;
    const FiscalYear year = Year_In(row);
    if (year == FiscalYear{openReport.FYStart, openReport.FYEnd}) return std::nullopt;
    if (const EntryBox* box = Check_Sequence(year)) return Refused(box->title, box->text, false);
    return Confirm_Year(place.talk, year);
}

bool Store_Identity_Row(const RowPlace& place) {
    const RowUnderEdit& row = place.row;
    const auto isIdentity = [&](std::string_view field) { return Is_Identity_Cell(row.Line(), field); };
    const auto& entered = row.Entered();
    if (std::ranges::none_of(entered, [&](const auto& cell) { return isIdentity(cell.first); })) return false;
    Identity identity = Present_Identity();
    if (row.Line() == kYearLine) {
        identity.year = Year_In(row);
    } else {
        if (Is_Entered(row, kFirst)) identity.facilityName = Nz_Str(row[kFirst]);
        if (Is_Entered(row, kSecond)) identity.providerNumber = Nz_Str(row[kSecond]);
    }
    const auto storeOthers = [&] {
        for (const auto& [field, value] : entered) {
            if (isIdentity(field)) continue;
            db.Execute(Sql("UPDATE S2 SET ", field, "=", value, " WHERE LineNum = ", row.Line(), ";"));
        }
    };
    if (identity != Present_Identity() || !Stands_On_S2(identity, row)) {
        Store_Identity(identity, storeOthers);
        return true;
    }
    // An entry equal to the present value is no change.
    Keep_Backup();
    Job job(db);
    storeOthers();
    job.Keep();
    return true;
}

}  // namespace tallmar
