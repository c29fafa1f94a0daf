#include "calc/w_a83.h"

#include <array>
#include <stdexcept>

#include "calc/a83_parts.h"
#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kFourColumns{
    Column{"LineNum"},
    Column{"LineLabel", FieldType::Text, 255},
    Column{"Col_1", FieldType::Double},
    Column{"Col_2", FieldType::Double},
    Column{"Col_3", FieldType::Double},
    Column{"Col_4", FieldType::Double},
};
constexpr std::span<const Column> kOneColumn = std::span(kFourColumns).first(3);

constexpr const char* kFirst = "0,Null,Null,Null";
constexpr const char* kCategories = "0,0,0,0";
constexpr const char* kWithoutAides = "0,0,0,Null";
constexpr const char* kShaded = "Null,Null,Null,Null";

}  // namespace

// Supervisors, therapists, assistants, aides.
constexpr std::array<FixedRow, 11> kLinesA83p1{{
    {1_cur, "Total number of weeks worked", kFirst},
    {2_cur, "Line 1 multiplied by 15 hours per week", kFirst},
    {3_cur, "Number of unduplicated HHA visits - supervisors or therapists", kFirst},
    {4_cur, "Number of unduplicated HHA visits - therapy assistant visits with no supervisor or therapist", kFirst},
    {5_cur, "Standard travel expense rate", kFirst},
    {6_cur, "Optional travel expense rate per mile", kFirst},
    {7_cur, "Total hours worked", kCategories},
    {8_cur, "A H S E A", kCategories},
    {9_cur, "Standard travel allowance", kWithoutAides},
    {10_cur, "Number of travel hours - (HHA only)", kWithoutAides},
    {11_cur, "Number of miles driven - (HHA only)", kWithoutAides},
}};

namespace {}  // namespace

constexpr std::array<FixedRow, 9> kLinesA83p2{{
    {12_cur, "Supervisors", "0"},
    {13_cur, "Therapists", "0"},
    {14_cur, "Assistants", "0"},
    {15_cur, "Subtotal Allowance Amount", "0", LineKind::Total},
    {16_cur, "Aides", "0"},
    {17_cur, "Total Allowance Amount", "0", LineKind::Total},
    {18_cur, "Weighted average rate excluding aides", "0"},
    {19_cur, "Weighted allowance excluding aides", "0"},
    {20_cur, "Total Salary Equivalency", "0", LineKind::Total},
}};

namespace {}  // namespace

constexpr std::array<FixedRow, 11> kLinesA83p3{{
    {21_cur, "Therapists", kShaded},
    {22_cur, "Assistants", kShaded},
    {23_cur, "Subtotal", kShaded, LineKind::Total},
    {24_cur, "Standard Travel Expenses", kShaded},
    {25_cur, "Therapists", kShaded},
    {26_cur, "Assistants", kShaded},
    {27_cur, "Subtotal", kShaded, LineKind::Total},
    {28_cur, "Optional Travel Expenses", kShaded},
    {29_cur, "*Standard Travel Allowance and Standard Travel Expense", kShaded},
    {30_cur, "Optional Travel Allowance and Standard Travel Expense", kShaded},
    {31_cur, "Optional Travel Allowance and Optional Travel Expense", kShaded},
}};

namespace {}  // namespace

constexpr std::array<FixedRow, 10> kLinesA83p4{{
    {32_cur, "Overtime hours worked during cost reporting period", kShaded},
    {33_cur, "Overtime rate", kShaded},
    {34_cur, "Total overtime", kShaded, LineKind::Total},
    {35_cur, "Percentage of overtime hours by category", kShaded},
    {36_cur, "Allocation of provider's standard workyear for one full-time employee", kShaded},
    {37_cur, "Adjusted hourly salary equivalency amount", kShaded},
    {38_cur, "Overtime cost limitation", kShaded},
    {39_cur, "Maximum overtime cost", kShaded},
    {40_cur, "Portion of overtime already included in hourly computation at AHSEA", kShaded},
    {41_cur, "Overtime allowance", kShaded},
}};

namespace {}  // namespace

constexpr std::array<FixedRow, 8> kLinesA83p5{{
    {42_cur, "Salary equivalency amount", "0"},
    {43_cur, "Travel allowance and expense", "0"},
    {44_cur, "Overtime allowance", "0"},
    {45_cur, "Equipment cost", "0"},
    {46_cur, "Supplies", "0"},
    {47_cur, "Total allowance", "0", LineKind::Total},
    {48_cur, "Total cost of outside supplier services", "0"},
    {49_cur, "Excess over limitation", "0"},
}};

namespace {

constexpr const char* kFourFields = "LineNum,LineLabel,Col_1,Col_2,Col_3,Col_4";
constexpr const char* kOneField = "LineNum,LineLabel,Col_1";

struct Part {
    std::string_view stem;
    std::span<const Column> columns;
    const char* fields;
    std::span<const FixedRow> rows;
    void (*calc)(char discipline);
};

constexpr std::array kParts{
    Part{"A83p1", kFourColumns, kFourFields, kLinesA83p1, Calc_A83p1},
    Part{"A83p2", kOneColumn, kOneField, kLinesA83p2, Calc_A83p2},
    Part{"A83p3", kFourColumns, kFourFields, kLinesA83p3, Calc_A83p3},
    Part{"A83p4", kFourColumns, kFourFields, kLinesA83p4, Calc_A83p4},
    Part{"A83p5", kOneColumn, kOneField, kLinesA83p5, Calc_A83p5},
};

constexpr std::string_view kDisciplines = "POS";

const Part& Find_Part(const Item& item) {
    for (const Part& part : kParts) {
        if (item.Name().starts_with(part.stem)) return part;
    }
    throw std::invalid_argument("no part of A-8-3: " + item.Name());
}

void Build_Instance(const Part& part, char discipline) {
    const std::string item = std::string(part.stem) + discipline;
    if (db.TableDefs().Has(item)) db.TableDefs().Delete(item);
    Create_Table(item, part.columns);
    Insert_Rows(item, part.fields, part.rows);
    db.Execute(Sql("CREATE UNIQUE INDEX ndx ON ", item, " (LineNum);"));
    if (Is_Cost_Limit_Period()) Register_Worksheet(item);
}

}  // namespace

void Build_A83(const Item& item) {
    const Part& part = Find_Part(item);
    const std::string named = item.Rest(part.stem.size() + 1);
    for (const char discipline : named.empty() ? kDisciplines : std::string_view(named))
        Build_Instance(part, discipline);
}

void Calc_A83(const Item& item) {
    const Part& part = Find_Part(item);
    const std::string discipline = item.Rest(part.stem.size() + 1);
    if (!discipline.empty()) part.calc(discipline.front());
}

}  // namespace tallmar
