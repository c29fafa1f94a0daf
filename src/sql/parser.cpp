#include "sql/parser.h"

#include <algorithm>

#include "common/text.h"
#include "sql/expression_parser.h"
#include "sql/keywords.h"
#include "sql/limits.h"
#include "sql/token_reader.h"

namespace tallmar::sql {

namespace {

class StatementParser {
  public:
    explicit StatementParser(std::string_view text) : in_(text, 0) {}

    StatementTree Whole_Statement() {
        StatementTree statement = Any_Statement();
        in_.Need_End();
        return statement;
    }

  private:
    // Statements

    StatementTree Any_Statement() {
        if (in_.At_Word("SELECT")) return Select_Statement();
        if (in_.Take_Word("INSERT")) return Insert_Statement();
        if (in_.Take_Word("UPDATE")) return Update_Statement();
        if (in_.Take_Word("DELETE")) return Delete_Statement();
        if (in_.Take_Word("DROP")) return Drop_Statement();
        if (in_.Take_Word("CREATE")) return Create_Statement();
        in_.Fail();
    }

    StatementTree Select_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Select;
        statement.select = Select(true);
        return statement;
    }

    SelectTree Select(bool mayMakeTable) {
        SelectTree select;
        in_.Need_Word("SELECT");
        select.distinct = in_.Take_Word("DISTINCT");
        if (in_.At_Word("TOP") && in_.Peek(1).kind == TokenKind::Number) {
            in_.Skip();
            select.top = in_.Whole_Number();
        }
        do {
            select.items.push_back(Item());
        } while (in_.Take_Sign(","));
        if (mayMakeTable && in_.Take_Word("INTO")) {
            select.intoPlace = in_.Here();
            select.into = in_.Name();
        }
        in_.Need_Word("FROM");
        select.from = Tables();
        if (in_.Take_Word("WHERE")) select.where = Parse_Expression(in_);
        if (in_.Take_Word("GROUP")) {
            in_.Need_Word("BY");
            do {
                select.groupBy.push_back(Parse_Expression(in_));
            } while (in_.Take_Sign(","));
        }
        if (in_.Take_Word("ORDER")) {
            in_.Need_Word("BY");
            do {
                OrderItem item;
                item.expr = Parse_Expression(in_);
                item.descending = in_.Take_Word("DESC");
                if (!item.descending) in_.Take_Word("ASC");
                select.orderBy.push_back(std::move(item));
            } while (in_.Take_Sign(","));
        }
        return select;
    }

    SelectItem Item() {
        SelectItem item;
        item.place = in_.Here();
        if (in_.Take_Sign("*")) {
            item.kind = SelectItem::Kind::All;
        } else if (in_.At_Name() && in_.Is_Sign(1, ".") && in_.Is_Sign(2, "*")) {
            item.kind = SelectItem::Kind::AllOf;
            item.name = in_.Name();
            in_.Skip(2);
        } else {
            item.expr = Parse_Expression(in_);
            if (in_.Take_Word("AS")) item.name = in_.Name();
        }
        return item;
    }

    StatementTree Insert_Statement() {
        StatementTree statement;
        in_.Need_Word("INTO");
        statement.place = in_.Here();
        statement.name = in_.Name();
        statement.named = in_.Take_Sign("(");
        if (statement.named) {
            do {
                statement.fields.push_back(in_.Field_Name());
            } while (in_.Take_Sign(","));
            in_.Need_Sign(")");
        }
        if (in_.Take_Word("VALUES")) {
            statement.kind = StatementTree::Kind::Insert;
            in_.Need_Sign("(");
            do {
                statement.values.push_back(Parse_Expression(in_));
            } while (in_.Take_Sign(","));
            in_.Need_Sign(")");
        } else {
            statement.kind = StatementTree::Kind::InsertSelect;
            statement.select = Select(false);
        }
        return statement;
    }

    StatementTree Update_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Update;
        statement.place = in_.Here();
        statement.select.from = Tables();
        in_.Need_Word("SET");
        do {
            Assignment assignment;
            assignment.target = in_.Field_Name();
            in_.Need_Sign("=");
            assignment.value = Parse_Expression(in_);
            statement.assignments.push_back(std::move(assignment));
        } while (in_.Take_Sign(","));
        if (in_.Take_Word("WHERE")) statement.select.where = Parse_Expression(in_);
        return statement;
    }

    StatementTree Delete_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::Delete;
        std::string rowsOf;
        const Place rowsPlace = in_.Here();
        if (!in_.Take_Sign("*") && !in_.At_Word("FROM")) {
            rowsOf = in_.Name();
            in_.Need_Sign(".");
            in_.Need_Sign("*");
        }
        in_.Need_Word("FROM");
        statement.place = in_.Here();
        statement.name = in_.Name();
        if (!rowsOf.empty() && !Same_Text(rowsOf, statement.name)) {
            in_.Fail(DbErrorCode::UnknownTable, rowsOf, rowsPlace);
        }
        if (in_.Take_Word("WHERE")) statement.select.where = Parse_Expression(in_);
        return statement;
    }

    StatementTree Drop_Statement() {
        StatementTree statement;
        statement.kind = StatementTree::Kind::DropTable;
        in_.Need_Word("TABLE");
        statement.place = in_.Here();
        statement.name = in_.Name();
        return statement;
    }

    StatementTree Create_Statement() {
        StatementTree statement;
        const bool unique = in_.Take_Word("UNIQUE");
        if (!unique && in_.Take_Word("TABLE")) {
            statement.kind = StatementTree::Kind::CreateTable;
            statement.place = in_.Here();
            statement.name = in_.Name();
            in_.Need_Sign("(");
            do {
                statement.newFields.push_back(New_Field());
            } while (in_.Take_Sign(","));
            in_.Need_Sign(")");
            return statement;
        }
        statement.kind = StatementTree::Kind::CreateIndex;
        in_.Need_Word("INDEX");
        statement.index.unique = unique;
        statement.index.name = in_.Name();
        in_.Need_Word("ON");
        statement.place = in_.Here();
        statement.name = in_.Name();
        in_.Need_Sign("(");
        do {
            statement.fields.push_back(in_.Field_Name());
            statement.index.fields.push_back(statement.fields.back().name);
        } while (in_.Take_Sign(","));
        in_.Need_Sign(")");
        if (in_.Take_Word("WITH")) {
            in_.Need_Word("DISALLOW");
            in_.Need_Word("NULL");
            statement.index.disallowNull = true;
        }
        return statement;
    }

    NewField New_Field() {
        NewField made;
        made.place = in_.Here();
        made.field.name = in_.Name();
        const FieldTypeRow* type = in_.Peek().kind == TokenKind::Word ? Find_Field_Type(in_.Peek().text) : nullptr;
        if (type == nullptr) in_.Fail();
        in_.Skip();
        made.field.type = type->field;
        if (!Has_Size(type->field)) return made;
        made.field.size = kDefaultTextSize;
        if (in_.Take_Sign("(")) {
            made.field.size = in_.Whole_Number();
            if (made.field.size < 1 || made.field.size > kDefaultTextSize) in_.Fail_Before();
            in_.Need_Sign(")");
        }
        return made;
    }

    // Tables

    std::vector<TableTreePtr> Tables() {
        std::vector<TableTreePtr> tables;
        do {
            tables.push_back(Join());
        } while (in_.Take_Sign(","));
        return tables;
    }

    TableTreePtr Join() {
        const TokenReader::Deeper deeper(in_);
        TableTreePtr left = Table();
        for (;;) {
            const TableTree::Kind kind = in_.At_Word("INNER")   ? TableTree::Kind::Inner
                                         : in_.At_Word("LEFT")  ? TableTree::Kind::Left
                                         : in_.At_Word("RIGHT") ? TableTree::Kind::Right
                                                                : TableTree::Kind::Table;
            if (kind == TableTree::Kind::Table) return left;
            auto join = std::make_unique<TableTree>();
            join->kind = kind;
            join->place = in_.Here();
            in_.Skip();
            in_.Need_Word("JOIN");
            join->left = std::move(left);
            join->right = Table();
            in_.Need_Word("ON");
            join->on = Parse_Expression(in_);
            join->depth = 1 + std::max(join->left->depth, join->right->depth);
            if (join->depth > kDeepestTree) in_.Too_Complex(join->place);
            left = std::move(join);
        }
    }

    TableTreePtr Table() {
        if (in_.Take_Sign("(")) {
            TableTreePtr inner = Join();
            in_.Need_Sign(")");
            return inner;
        }
        auto table = std::make_unique<TableTree>();
        table->place = in_.Here();
        table->name = in_.Name();
        if (in_.Take_Word("AS") || in_.At_Name()) table->alias = in_.Name();
        return table;
    }

    TokenReader in_;
};

}  // namespace

StatementTree Parse_Statement(std::string_view statement) {
    return StatementParser(statement).Whole_Statement();
}

ExprPtr Parse_Criterion(std::string_view criterion, int firstLiteral) {
    TokenReader in(criterion, firstLiteral);
    ExprPtr tree = Parse_Expression(in);
    in.Need_End();
    return tree;
}

}  // namespace tallmar::sql
