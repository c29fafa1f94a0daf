#include "report/master.h"

#include "common/platform.h"
#include "common/sql_text.h"
#include "common/variant.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/tables.h"

namespace tallmar {

namespace {

constexpr Column kMasterFields[] = {
    {"BuildDate", FieldType::Date},    {"FormNum", FieldType::Text, 8},   {"ProviderNumber", FieldType::Text, 8},
    {"FYStart", FieldType::Date},      {"FYEnd", FieldType::Date},        {"ProviderName", FieldType::Text, 36},
    {"AllCCs", FieldType::Integer},    {"GenSvcCCs", FieldType::Integer}, {"CapitalCCs", FieldType::Integer},
    {"EmpBenCCs", FieldType::Integer}, {"BSubTot1", FieldType::Memo},     {"BSubTot2", FieldType::Memo},
    {"BSubTot3", FieldType::Memo},     {"B1SubTot", FieldType::Memo},
};

constexpr Column kHeaderLineFields[] = {
    {"LineNum", FieldType::Long},
    {"LineText", FieldType::Text, 60},
};
constexpr int kHeaderLines = 3;

}  // namespace

void Build_Master() {
    Create_Table("Master", kMasterFields);
    Recordset master = db.OpenRecordset("Master", RecordsetType::Table);
    master.AddNew();
    master.Fields("BuildDate").Set(The_Platform().Now());
    master.Fields("FormNum").Set(openReport.FormNum);
    master.Fields("ProviderNumber").Set(openReport.ProviderNumber);
    master.Fields("FYStart").Set(openReport.FYStart);
    master.Fields("FYEnd").Set(openReport.FYEnd);
    master.Fields("ProviderName").Set(openReport.ProviderName);
    master.Update();
    master.Close();
}

void Build_HeaderLines() {
    Create_Table("HeaderLines", kHeaderLineFields);
    for (int line = 1; line <= kHeaderLines; ++line) {
        db.Execute(Sql("INSERT INTO HeaderLines (LineNum) VALUES (", line, ");"));
    }
    Edit_Worksheets("HeaderLines", "Make", kInternalLevel);
}

void Load_HeaderLines() {
    std::string* const lines[] = {&openReport.HeaderLine1, &openReport.HeaderLine2, &openReport.HeaderLine3};
    for (int line = 1; line <= kHeaderLines; ++line) {
        std::string& text = *lines[line - 1];
        text.clear();
        try {
            text = Nz_Str(db.Read_Row(Sql("SELECT LineText FROM HeaderLines WHERE LineNum = ", line, ";"))["LineText"]);
        } catch (const DbError& error) {  // an older report has no such table, and so no lines
            if (error.Ends_Work()) throw;
        }
    }
}

bool Load_Master() {
    try {
        const Row master = db.Read_Row("SELECT FormNum, FYEnd, FYStart, ProviderName, ProviderNumber FROM Master;");
        if (!master) return false;
        openReport.FormNum = Nz_Str(master["FormNum"]);
        openReport.FYEnd = master["FYEnd"].Is_Null() ? Date{} : master["FYEnd"].To_Date();
        openReport.FYStart = master["FYStart"].Is_Null() ? Date{} : master["FYStart"].To_Date();
        openReport.ProviderName = Nz_Str(master["ProviderName"]);
        openReport.ProviderNumber = Nz_Str(master["ProviderNumber"]);
        return true;
    } catch (const DbError& error) {
        if (error.Ends_Work()) throw;
        return false;
    }
}

}  // namespace tallmar
