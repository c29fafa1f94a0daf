#include "calc/stat_columns.h"

#include "common/numbers.h"
#include "common/sql_text.h"
#include "common/text.h"
#include "common/variant.h"
#include "report/open_report.h"

namespace tallmar {

std::string Line_Column(std::string_view prefix, Currency ccNum) {
    return std::string(prefix) + Currency::From_Scaled(ccNum.Scaled() * 100).To_Text();
}

std::string CC_Column(Currency ccNum) {
    return Line_Column(kCCPrefix, ccNum);
}

std::string Recon_Column(Currency ccNum) {
    return Line_Column(kReconPrefix, ccNum);
}

Currency Column_CC(std::string_view column) {
    const std::size_t start = Is_Recon_Column(column) ? kReconPrefix.size() : kCCPrefix.size();
    if (column.size() <= start) return Currency{};
    return Currency::From_Double(Val(column.substr(start)) / 100).value_or(Currency{});
}

bool Is_CC_Column(std::string_view column) {
    return Begins_With(column, kCCPrefix);
}

bool Is_Recon_Column(std::string_view column) {
    return Begins_With(column, "Recon");
}

bool Is_Accumulated_Cost(const Value& statLabel1, const Value& statLabel2) {
    return In_Str(1, To_Upper(Nz_Str(statLabel1)), "ACCUM") > 0 && In_Str(1, To_Upper(Nz_Str(statLabel2)), "COST") > 0;
}

void ShapeStats(std::string_view table) {
    const TableDef stats = db.TableDefs().Item(table);
    for (const FieldDef& field : stats.Shape().fields) {
        if (!Is_CC_Column(field.name) && !Is_Recon_Column(field.name)) continue;
        db.Execute(Sql("UPDATE ", table, " SET ", field.name, " = 0 WHERE ", field.name, " Is Null;"));
        db.Execute(Sql("UPDATE ", table, " SET ", field.name, " = Null WHERE LineNum < ", Column_CC(field.name), ";"));
    }
}

}  // namespace tallmar
