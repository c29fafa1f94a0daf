#include "report/tables.h"

#include "report/open_report.h"

namespace tallmar {

void Create_Table(std::string_view name, std::span<const Column> fields) {
    TableDef table = db.CreateTableDef(name);
    for (const Column& field : fields) table.Fields_Append(table.CreateField(field.name, field.type, field.size));
    db.TableDefs().Append(table);
}

}  // namespace tallmar
