#include "support/report_fixture.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "calc/driver.h"
#include "catalogue.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/answers.h"
#include "report/build_worksheet.h"
#include "report/chart.h"
#include "report/message_log.h"
#include "report/new_report.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/run_log.h"
#include "report/store.h"

namespace tallmar {

namespace {

NewReportEntries Sample_Entries() {
    NewReportEntries entries;
    entries.providerNumber = "14-7100";
    entries.facilityName = "Prairie Home Health";
    return entries;
}

void Begin_File(const TempFolder& folder) {
    Install_Catalogue(All_Families());
    Take_Path(folder.File("report.CRF"));
    if (!CreateCRF()) throw std::runtime_error("no report was made");
}

std::string Listed(const std::vector<Platform::BatchMessage>& messages) {
    std::string list;
    for (const auto& message : messages) {
        list += "\n  " + message.level + " " + message.form + ": " + message.message;
    }
    return list;
}

// What the batch lists since number `first` hold.
std::vector<Platform::BatchMessage> Messages_Since(const FakePlatform& platform, std::size_t first) {
    std::vector<Platform::BatchMessage> messages;
    for (std::size_t i = first; i < platform.batches.size(); ++i) {
        messages.insert(messages.end(), platform.batches[i].rows.begin(), platform.batches[i].rows.end());
    }
    return messages;
}

std::string Where(const LineRef& line) {
    return Sql(" WHERE LineNum = ", line.line, ";");
}

std::string Place(std::string_view item, const LineRef& line, const ColumnRef& column) {
    return Sql(item, " line ", line.line, " ", column.name);
}

// Nothing where there is no such row. Throws DbError where there is no such table or column.
std::optional<Value> Read_Cell(std::string_view item, const LineRef& line, const ColumnRef& column) {
    const Row row = db.Read_Row(Sql("SELECT ", column.name, " FROM ", item, Where(line)));
    if (!row) return std::nullopt;
    return row[0];
}

std::string Shown(const Value& value) {
    if (value.Is_Null()) return "Null";
    return value.Is<std::string>() ? "\"" + value.To_Text() + "\"" : value.To_Text();
}

bool Same_Value(const Value& found, const Value& expected) {
    const bool text = found.Is<std::string>() || expected.Is<std::string>();
    if (found.Is_Null() || expected.Is_Null() || text) return found == expected;
    if (found.Is<Currency>()) return found.To_Currency() == expected.To_Currency();
    const double x = found.To_Double();
    const double y = expected.To_Double();
    return std::abs(x - y) <= 1e-9 * std::max({1.0, std::abs(x), std::abs(y)});
}

}  // namespace

Report::Report(const FiscalYear& year) {
    Begin_File(folder);
    Assemble_CRF(Sample_Entries(), year);
    Load_Answers();
    End_Msg_Log("NewCRF");
    if (!platform.batches.empty())
        ADD_FAILURE() << "the new report has messages:" << Listed(Messages_Since(platform, 0));
}

Report::~Report() {
    openReport = {};
    Install_Catalogue({});
}

void Report::Begin(const FiscalYear& year, std::initializer_list<const char*> items) {
    Begin_File(folder);
    const NewReportEntries entries = Sample_Entries();
    openReport.FormNum = entries.formNum;
    openReport.ProviderNumber = entries.providerNumber;
    openReport.ProviderName = entries.facilityName;
    openReport.FYStart = year.start;
    openReport.FYEnd = year.end;
    Build_Worksheets();
    Build_Log();
    Build_CC();
    for (const char* item : items) Build(item);
}

void Report::Cell(std::string_view item, const LineRef& line, const ColumnRef& column, const Value& value) {
    const auto changed = Execute(Sql("UPDATE ", item, " SET ", column.name, " = ", value, Where(line)));
    if (changed != 1) ADD_FAILURE() << Place(item, line, column) << ": " << changed << " rows";
}

Value Report::Cell(std::string_view item, const LineRef& line, const ColumnRef& column) {
    const auto value = Read_Cell(item, line, column);
    if (!value) ADD_FAILURE() << Place(item, line, column) << ": no such row";
    return value.value_or(Null);
}

std::int64_t Report::Execute(std::string_view sql) {
    return db.Execute(sql);
}

void Report::Add_Row(std::string_view item, std::string_view fields, std::string_view values) {
    db.Execute(Sql("INSERT INTO ", item, " (", fields, ") VALUES (", values, ");"));
}

void Report::Add_Cost_Center(Currency line, std::string_view name) {
    Add_Row("CostCenters", "LineNum,LineType,CCNum,CCGroup,CCType,MaxLines,CCName",
            Sql(line, ",'S',", line, ",", static_cast<int>(line.Scaled() / 100), ",'A',9,", Quoted(name)));
}

Value Report::Read(std::string_view select) {
    const Row row = db.Read_Row(select);
    return row ? row[0] : Value(Null);
}

std::int32_t Report::Count(std::string_view table) {
    return Read(Sql("SELECT Count(*) FROM ", table, ";")).To_Long();
}

std::string Report::Column(std::string_view select) {
    std::string joined;
    Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) {
        const Value value = rows.Fields(0).Value();
        joined += (joined.empty() ? "" : " ") + (value.Is_Null() ? "-" : value.To_Text());
    }
    return joined;
}

std::string Report::List(std::string_view item, const ColumnRef& column, std::string_view where) {
    return Column(Sql("SELECT ", column.name, " FROM ", item, " WHERE ", where, " ORDER BY LineNum;"));
}

std::string Report::Lines(std::string_view item, std::string_view where) {
    return List(item, "LineNum", where);
}

void Report::Calc() {
    const auto messages = Calc_With_Messages();
    if (!messages.empty()) ADD_FAILURE() << "the calculation has messages:" << Listed(messages);
}

std::vector<Platform::BatchMessage> Report::Calc_With_Messages() {
    const std::size_t before = platform.batches.size();
    Calc_All();
    return Messages_Since(platform, before);
}

void Report::Build(const Item& item) {
    if (!Build_Worksheet(item)) ADD_FAILURE() << item.Name() << " has no family";
}

void Report::Calc(const Item& item) {
    const WorksheetFamily* family = Find_Family(item);
    if (family == nullptr || family->calc == nullptr) {
        ADD_FAILURE() << item.Name() << " has no calculation";
    } else {
        family->calc(item);
    }
}

testing::AssertionResult Cell_Is(std::string_view item, const LineRef& line, const ColumnRef& column,
                                 const Value& expected) {
    const auto found = Read_Cell(item, line, column);
    if (!found) return testing::AssertionFailure() << Place(item, line, column) << ": no such row";
    if (Same_Value(*found, expected)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << Place(item, line, column) << " is " << Shown(*found) << ", expected "
                                       << Shown(expected);
}

}  // namespace tallmar
