#include "calc/w_a1.h"

#include <array>
#include <stdexcept>

#include "calc/worksheet.h"
#include "common/sql_text.h"

namespace tallmar {

namespace {

constexpr std::array kColumns{
    Column{"LineNum"}, Column{"CCName", FieldType::Text, 40},
    Column{"Col_1"},   Column{"Col_2"},
    Column{"Col_3"},   Column{"Col_4"},
    Column{"Col_5"},   Column{"Col_6"},
    Column{"Col_7"},   Column{"Col_8"},
    Column{"Col_9"},
};

}  // namespace

constexpr std::array<FixedRow, 1> kLinesA1{{{29_cur, "Total", "", LineKind::Total}}};

namespace {

// Consultants carry no salary and no payroll benefit: column 3 is in use on A-3 only.
constexpr std::array<std::string_view, 8> kTotals{"Col_1", "Col_2", "Col_4", "Col_5",
                                                  "Col_6", "Col_7", "Col_8", "Col_9"};
constexpr std::array<std::string_view, 9> kTotalsWithConsultants{"Col_1", "Col_2", "Col_3", "Col_4", "Col_5",
                                                                 "Col_6", "Col_7", "Col_8", "Col_9"};

struct Analysis {
    std::string_view item;
    std::span<const std::string_view> totals;  // column 9, the line total, is last
    std::string_view zeroes;                   // columns that begin at 0 ...
    std::string_view shaded;                   // ... but for these lines
};

constexpr std::array<Analysis, 3> kAnalyses{{
    {"A1", kTotals, "Col_1=0, Col_2=0, Col_4=0, Col_5=0, Col_6=0, Col_7=0", "1,2,13,14"},
    {"A2", kTotals, "Col_1=0, Col_2=0, Col_4=0, Col_5=0, Col_6=0, Col_7=0", "1,2,12,13,14"},
    {"A3", kTotalsWithConsultants, "Col_1=0, Col_2=0, Col_3=0, Col_4=0, Col_5=0, Col_6=0, Col_7=0", "1,2,12,13,14"},
}};

const Analysis& Find_Analysis(const Item& item) {
    for (const Analysis& analysis : kAnalyses) {
        if (analysis.item == item.Name()) return analysis;
    }
    throw std::invalid_argument("no compensation analysis: " + item.Name());
}

constexpr std::string_view kAnalysedLines = "(LineNum > 2) AND (LineNum < 29)";

}  // namespace

void Build_Compensation(const Item& item) {
    const Analysis& analysis = Find_Analysis(item);
    Create_Table(item.Name(), kColumns);
    db.Execute(Sql("INSERT INTO ", item.Name(), "  SELECT  LineNum, CCName  FROM CostCenters;"));
    Insert_Rows(item, "LineNum,CCName", kLinesA1);
    db.Execute(Sql("CREATE UNIQUE INDEX ndx", item.Name(), " ON ", item.Name(), " (LineNum);"));
    db.Execute(Sql("UPDATE ", item.Name(), " SET ", analysis.zeroes, " WHERE LineNum NOT In(", analysis.shaded, ");"));
    db.Execute(Sql("UPDATE ", item.Name(), " SET Col_8=0, Col_9=0 WHERE LineNum NOT In(1,2);"));
    Finish_Table(item, "");
}

void Calc_Compensation(const Item& item) {
    const Analysis& analysis = Find_Analysis(item);
    const auto classes = analysis.totals.first(analysis.totals.size() - 1);
    db.Execute(Sql("UPDATE ", item.Name(), " SET Col_9 = ", Guarded_Sum(classes), " WHERE ", kAnalysedLines, ";"));
    Store_Totals(item, analysis.totals, kAnalysedLines, "LineNum = 29");
}

}  // namespace tallmar
