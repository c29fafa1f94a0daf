// The whole report, or some of its tables, as one JSON object.
#include <algorithm>

#include "cli/commands.h"
#include "cli/json_text.h"
#include "cli/open_for_command.h"
#include "common/dates.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "report/open_report.h"

namespace tallmar {

namespace {

// Master as an object: identity first, the fiscal year as plain dates.
std::string Master_Json() {
    JsonObject object;
    const Row master = db.Read_Row("SELECT * FROM Master;");
    object.Add("FormNum", master["FormNum"]).Add("ProviderNumber", master["ProviderNumber"]);
    object.Add("FYStart", Iso_Date(openReport.FYStart)).Add("FYEnd", Iso_Date(openReport.FYEnd));
    for (const char* field : {"ProviderName", "BuildDate", "AllCCs", "GenSvcCCs", "CapitalCCs", "EmpBenCCs", "BSubTot1",
                              "BSubTot2", "BSubTot3", "B1SubTot"}) {
        object.Add(field, master[field]);
    }
    return object.Text();
}

void Print_Table(const TableShape& table, std::ostream& out) {
    out << "{\"columns\":[";
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
        const FieldDef& field = table.fields[i];
        JsonObject column;
        column.Add("name", field.name).Add("type", Type_Name(field.type));
        column.Add("size", Has_Size(field.type) ? Value(field.size) : Value(Null));
        out << (i == 0 ? "" : ",") << column.Text();
    }
    out << "],\n\"rows\":[";
    const std::string order = table.Field_Position("LineNum") >= 0 ? " ORDER BY LineNum" : "";
    bool first = true;
    for (Recordset rows =
             db.OpenRecordset(Sql("SELECT * FROM [", table.name, "]", order, ";"), RecordsetType::Snapshot);
         !rows.Eof(); rows.MoveNext()) {
        out << (first ? "\n[" : ",\n[");
        first = false;
        for (int i = 0; i < rows.Fields_Count(); ++i) out << (i == 0 ? "" : ",") << Json_Value(rows.Fields(i).Value());
        out << ']';
    }
    out << "]}";
}

}  // namespace

int Run_Dump(CommandContext& context) {
    const OpenedReport report(context.arguments.file, OpenedReport::Use::Reading);
    if (!report) return 1;
    // One state of the report, whoever else writes to it.
    Job job(db, Job::Kind::Reading);
    const TableDefs tables = db.TableDefs();
    const std::vector<std::string>& named = context.arguments.tables;
    for (const std::string& name : named) {
        if (!tables.Has(name)) {
            context.err << "The report has no table '" << name << "'.\n";
            return 1;
        }
    }
    context.out << "{\"master\":" << Master_Json() << ",\n\"tables\":{";
    bool first = true;
    for (int i = 0; i < tables.Count(); ++i) {
        const TableDef table = tables.Item(i);
        const auto same = [&](const std::string& name) { return Same_Text(name, table.Name()); };
        if (!named.empty() && std::none_of(named.begin(), named.end(), same)) continue;
        context.out << (first ? "\n" : ",\n") << Json_Text(table.Name()) << ":";
        first = false;
        Print_Table(table.Shape(), context.out);
    }
    context.out << "}}\n";
    return 0;
}

}  // namespace tallmar
