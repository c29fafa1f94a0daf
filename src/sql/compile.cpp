#include "common/db_error.h"
#include "common/text.h"
#include "sql/binder.h"
#include "sql/generator.h"
#include "sql/lexer.h"
#include "sql/parser.h"
#include "sql/plan.h"

namespace tallmar::sql {

namespace {

// SELECT * FROM <name>, whatever the name holds.
SelectTree Whole_Table(std::string_view name) {
    name = Trim(name);
    if (name.size() > 2 && name.front() == '[' && name.back() == ']') name = name.substr(1, name.size() - 2);
    SelectTree select;
    select.items.emplace_back();
    select.items.back().kind = SelectItem::Kind::All;
    select.from.push_back(std::make_unique<TableTree>());
    select.from.back()->name = name;
    return select;
}

}  // namespace

Plan Compile(std::string_view statement, const Schema& schema) {
    BoundStatement bound = Bind_Statement(Parse_Statement(statement), statement, schema);
    return Generate(bound);
}

SqliteText Compile_Find(std::string_view source, std::string_view criterion, const Schema& schema) {
    int literals = 0;
    SelectTree select;
    if (Is_Table_Name(source)) {
        select = Whole_Table(source);
    } else {
        StatementTree statement = Parse_Statement(source);
        if (statement.kind != StatementTree::Kind::Select) throw DbError(DbErrorCode::InvalidOperation, source);
        select = std::move(statement.select);
        literals = static_cast<int>(Lift(source).literals.size());
    }
    const ExprPtr tree = Parse_Criterion(criterion, literals);
    return Generate_Find(Bind_Find(select, source, *tree, criterion, schema));
}

bool Is_Table_Name(std::string_view source) {
    while (!source.empty() &&
           (source.front() == ' ' || source.front() == '\t' || source.front() == '\r' || source.front() == '\n')) {
        source.remove_prefix(1);
    }
    std::size_t end = 0;
    while (end < source.size() && Is_Word_Part(source[end])) ++end;
    return !Is_Keyword(source.substr(0, end), "SELECT");
}

}  // namespace tallmar::sql
