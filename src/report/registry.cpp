#include "report/registry.h"

#include <array>

#include "common/numbers.h"
#include "common/platform.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/message_log.h"
#include "report/open_report.h"
#include "report/tables.h"

namespace tallmar {

namespace {

constexpr Column kWorksheetsFields[] = {
    {"Item", FieldType::Text, 16},    {"Calc_Lvl", FieldType::Integer},   {"MakeDate", FieldType::Date},
    {"ChngDate", FieldType::Date},    {"SaveDate", FieldType::Date},      {"CalcDate", FieldType::Date},
    {"CalcErrs", FieldType::Integer}, {"KillDate", FieldType::Date},      {"PrntDate", FieldType::Date},
    {"ReCalc", FieldType::Boolean},   {"ItemName", FieldType::Text, 100},
};
constexpr const char* kStampFields[] = {"MakeDate", "ChngDate", "SaveDate", "CalcDate", "KillDate", "PrntDate"};

// Levels from here on are known by their table's name alone.
constexpr int kNamelessLevel = 900;

void Stamp_Make(Recordset& worksheets, std::string_view item, int level) {
    const Date now = The_Platform().Now();
    const bool isNew = worksheets.NoMatch();
    const bool neverCalculated = isNew || worksheets["CalcDate"].Is_Null();
    const bool neverKilled = isNew || worksheets["KillDate"].Is_Null();
    if (isNew) {
        worksheets.AddNew();
    } else {
        worksheets.Edit();
    }
    worksheets.Fields("Item").Set(item);
    if (level < kNamelessLevel) worksheets.Fields("ItemName").Set(WorksheetName(item));
    worksheets.Fields("Calc_Lvl").Set(level);
    for (const char* stamp : {"MakeDate", "ChngDate", "SaveDate"}) worksheets.Fields(stamp).Set(now);
    worksheets.Fields("CalcErrs").Set(0);
    worksheets.Fields("PrntDate").Set(Date{});
    worksheets.Fields("ReCalc").Set(true);
    if (neverCalculated) worksheets.Fields("CalcDate").Set(Date{});
    if (neverKilled) worksheets.Fields("KillDate").Set(Date{});
    worksheets.Update();
}

void Stamp(Recordset& worksheets, const char* stamp) {
    worksheets.Edit();
    worksheets.Fields(stamp).Set(The_Platform().Now());
}

// The parts of a display name, in the order in which they are joined.
enum class Slot { Therapy, Hospice, Title, Facility, Clinic, Part, Msa, Cbsa, PartAB, Count };

struct NameLetter {
    char letter;
    Slot slot;
    std::string_view text;
    std::size_t argument;  // characters taken from the item behind the letter
    std::size_t advance;
};

constexpr NameLetter kNameLetters[] = {
    {'A', Slot::PartAB, "  Part-A", 0, 1},   {'B', Slot::PartAB, "  Part-B", 0, 1},
    {'N', Slot::Facility, "  NF", 0, 1},     {'O', Slot::Therapy, " Occupational", 0, 1},
    {'P', Slot::Therapy, " Physical", 0, 1}, {'R', Slot::Therapy, " Respiratory", 0, 1},
    {'S', Slot::Therapy, " Speech", 0, 1},   {'f', Slot::Clinic, "  FQHC-", 1, 2},
    {'h', Slot::Hospice, "  HHA-", 1, 2},    {'m', Slot::Msa, "  MSA-", 4, 5},
    {'p', Slot::Part, "  Part-", 1, 2},      {'r', Slot::Clinic, "  RHC-", 1, 2},
    {'c', Slot::Cbsa, "  CBSA-", 5, 7},  // one character more than the code
    {'t', Slot::Title, "  Title-", 0, 3},
};
// Where a letter means something else.
constexpr NameLetter kHospiceLetter = {'h', Slot::Hospice, "  Hospice-", 1, 2};
constexpr NameLetter kSnfLetter = {'S', Slot::Facility, "  SNF", 0, 1};

struct Title {
    int number;
    std::string_view text;
};
constexpr Title kTitles[] = {{5, "V"}, {18, "XVIII"}, {19, "XIX"}};

constexpr bool Is_Digit(char c) {
    return c >= '0' && c <= '9';
}

const NameLetter* Find_Letter(char letter, std::string_view item, std::string_view base) {
    if (letter == 'h' && (Begins_With(item, "S5") || Begins_With(item, "K") || Begins_With(item, "O"))) {
        return &kHospiceLetter;
    }
    if (letter == 'S' && (base[0] == 'E' || base[0] == '|' || base[0] == 'D')) return &kSnfLetter;
    for (const NameLetter& row : kNameLetters) {
        if (row.letter == letter) return &row;
    }
    return nullptr;
}

std::string_view Title_Text(std::string_view argument) {
    const double number = Val(argument);
    for (const Title& title : kTitles) {
        if (number == title.number) return title.text;
    }
    return {};
}

}  // namespace

void Build_Worksheets() {
    Create_Table("Worksheets", kWorksheetsFields);
    Recordset worksheets = db.OpenRecordset("Worksheets", RecordsetType::Table);
    const Date now = The_Platform().Now();
    worksheets.AddNew();
    worksheets.Fields("Item").Set("Worksheets");
    for (const char* stamp : kStampFields) worksheets.Fields(stamp).Set(now);
    worksheets.Fields("ReCalc").Set(false);
    worksheets.Fields("Calc_Lvl").Set(kInternalLevel);
    worksheets.Fields("CalcErrs").Set(0);
    worksheets.Update();
    worksheets.Close();
    db.Execute("CREATE UNIQUE INDEX ndxWorksheets ON Worksheets (Item) WITH DISALLOW NULL;");
}

void Edit_Worksheets(std::string_view item, std::string_view action, int value) {
    Recordset worksheets = db.OpenRecordset("Worksheets", RecordsetType::Table);
    worksheets.Index("ndxWorksheets");
    worksheets.Seek("=", item);
    if (action != "Make" && worksheets.NoMatch()) {
        The_Platform().Beep();
        return;
    }
    if (action == "Make") {
        Stamp_Make(worksheets, item, value);
    } else if (action == "Chng") {
        Stamp(worksheets, "ChngDate");
        worksheets.Fields("ReCalc").Set(true);
        worksheets.Update();
    } else if (action == "Calc") {
        Stamp(worksheets, "CalcDate");
        worksheets.Fields("CalcErrs").Set(value);
        worksheets.Fields("ReCalc").Set(value != 0);
        worksheets.Update();
        openReport.ecrMayBeBuilt = false;
    } else if (action == "Save" || action == "Prnt" || action == "Kill") {
        Stamp(worksheets, action == "Save" ? "SaveDate" : action == "Prnt" ? "PrntDate" : "KillDate");
        worksheets.Update();
    }
    worksheets.Close();
}

std::string WorksheetName(std::string_view item) {
    std::string base;
    std::size_t position = 1;
    if (item == "S21") {
        base = "S-2-1";
        position = item.size();
    } else {
        base = item.substr(0, 1);
        while (position < item.size() && Is_Digit(item[position])) {
            if (position == 1) base += '-';
            base += item[position++];
        }
    }

    std::array<std::string, static_cast<std::size_t>(Slot::Count)> slots;
    while (position < item.size()) {
        const NameLetter* letter = Find_Letter(item[position], item, base);
        if (letter == nullptr) {
            Report_Msg(Sql("Unknown Worksheet name (", item, "), please call QVR."), kStop);
            ++position;
            continue;
        }
        const std::string_view argument = item.substr(position + 1);
        std::string& text = slots[static_cast<std::size_t>(letter->slot)];
        text = letter->text;
        text += letter->slot == Slot::Title ? Title_Text(argument) : argument.substr(0, letter->argument);
        position += letter->advance;
    }
    for (const std::string& text : slots) base += text;
    return base;
}

namespace {

bool Has_Registry_Row(std::string_view name) {
    const Row row =
        db.Read_Row(Sql("Select Count(*) As Cnt From Worksheets Where UCase([Item]) = ", Quoted(To_Upper(name)), ";"));
    return row["Cnt"].To_Long() > 0;
}

}  // namespace

bool TableExists(std::string_view name, bool inRegistry) {
    TableDefs tables = db.TableDefs();
    tables.Refresh();
    if (!tables.Has(name)) return false;
    if (!inRegistry || Has_Registry_Row(name)) return true;
    tables.Delete(name);
    return false;
}

bool Is_Registered_Table(std::string_view name) {
    return db.TableDefs().Has(name) && Has_Registry_Row(name);
}

std::vector<std::string> Read_Items(std::string_view select) {
    std::vector<std::string> items;
    Recordset rows = db.OpenRecordset(select, RecordsetType::Snapshot);
    for (; !rows.Eof(); rows.MoveNext()) items.push_back(Nz_Str(rows["Item"]));
    return items;
}

void Drop_Worksheet(std::string_view item) {
    if (db.TableDefs().Has(item)) db.TableDefs().Delete(item);
    db.Execute(Sql("Delete From Worksheets Where Item = ", Quoted(item), ";"));
}

bool Field_Exists(const Recordset& recordset, std::string_view name) {
    for (int i = 0; i < recordset.Fields_Count(); ++i) {
        if (Same_Text(recordset.Fields(i).Name(), name)) return true;
    }
    return false;
}

}  // namespace tallmar
