#include "screens/form_description.h"

#include "common/sql_text.h"

namespace tallmar {

std::string Form_Table(const FormDescription& form, const Item& item) {
    return form.table.empty() ? item.Name() : std::string(form.table);
}

std::string Form_Query(const FormDescription& form, const Item& item) {
    std::string query = Sql("SELECT * FROM ", Form_Table(form, item));
    if (!form.where.empty()) query += Sql(" WHERE ", form.where);
    if (form.window.above != nullptr)
        query += Sql(form.where.empty() ? " WHERE" : " AND", " LineNum <> ", form.window.above->line);
    if (!form.order.empty()) query += Sql(" ORDER BY ", form.order);
    return query + ";";
}

std::string Row_Query(const FormDescription& form, const Item& item, Currency line) {
    std::string query = Sql("SELECT * FROM ", Form_Table(form, item));
    std::string_view word = " WHERE ";
    if (!form.order.empty()) {
        query += Sql(word, "LineNum = ", line);
        word = " AND ";
    }
    if (!form.where.empty()) query += Sql(word, "(", form.where, ")");
    return query + ";";
}

}  // namespace tallmar
