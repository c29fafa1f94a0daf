#include "sql/match_count.h"

#include <algorithm>

#include "common/text.h"

namespace tallmar::sql {

namespace {

// A part of a condition that holds in every row of the join that has a row of the target, as far as it speaks of the
// tables from `first` to `last`. (The ON of an outer join says nothing of the side whose rows are kept.)
struct Part {
    const Bound* condition;
    int first, last;
};

void Add_Parts(const Bound& condition, int first, int last, std::vector<Part>& parts) {
    if (condition.kind != BoundKind::And) return parts.push_back({&condition, first, last});
    for (const BoundPtr& part : condition.args) Add_Parts(*part, first, last, parts);
}

int First_Table(const BoundJoin& join) {
    return join.left ? First_Table(*join.left) : join.table;
}
int Last_Table(const BoundJoin& join) {
    return join.right ? Last_Table(*join.right) : join.table;
}
bool Holds(const BoundJoin& join, int table) {
    return First_Table(join) <= table && table <= Last_Table(join);
}

void Add_Parts(const BoundJoin& join, int target, std::vector<Part>& parts) {
    if (join.kind == TableTree::Kind::Table) return;
    const BoundJoin* side = join.kind == TableTree::Kind::Left    ? join.right.get()
                            : join.kind == TableTree::Kind::Right ? join.left.get()
                                                                  : &join;
    const BoundJoin& told = Holds(*side, target) ? join : *side;
    Add_Parts(*join.on, First_Table(told), Last_Table(told), parts);
    Add_Parts(*join.left, target, parts);
    Add_Parts(*join.right, target, parts);
}

bool Depends_On_Known(const Bound& bound, const std::vector<bool>& known) {
    if (bound.kind == BoundKind::Column && !known[static_cast<std::size_t>(bound.index)]) return false;
    return std::all_of(bound.args.begin(), bound.args.end(),
                       [&](const BoundPtr& arg) { return Depends_On_Known(*arg, known); });
}

// `each` says that a field of table `table` equals something that is known: the field, else null.
const FieldDef* Fixed_Field(const Part& each, int table, const std::vector<bool>& known) {
    const Bound& part = *each.condition;
    if (table < each.first || table > each.last) return nullptr;
    if (part.kind != BoundKind::Binary || part.op != Op::Equal) return nullptr;
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
        const Bound& field = *part.args[side];
        if (field.kind == BoundKind::Column && field.index == table && Depends_On_Known(*part.args[1 - side], known)) {
            return field.field;
        }
    }
    return nullptr;
}

bool Is_Fixed(const BoundTable& table, const std::vector<const FieldDef*>& fields) {
    const auto fixed = [&](const std::string& name) {
        return std::any_of(fields.begin(), fields.end(),
                           [&](const FieldDef* field) { return Same_Text(field->name, name); });
    };
    return std::any_of(table.shape->indexes.begin(), table.shape->indexes.end(), [&](const IndexDef& index) {
        return index.unique && std::all_of(index.fields.begin(), index.fields.end(), fixed);
    });
}

}  // namespace

bool Meets_Once(const BoundSelect& select, int target) {
    std::vector<Part> parts;
    if (select.where) Add_Parts(*select.where, 0, static_cast<int>(select.tables.size()) - 1, parts);
    for (const BoundJoinPtr& join : select.from) Add_Parts(*join, target, parts);

    std::vector<bool> known(select.tables.size(), false);
    known[static_cast<std::size_t>(target)] = true;
    // Each round may make more known; a table that stays unknown may take part with any number of rows.
    for (std::size_t round = 0; round < select.tables.size(); ++round) {
        for (std::size_t i = 0; i < select.tables.size(); ++i) {
            if (known[i]) continue;
            std::vector<const FieldDef*> fields;
            for (const Part& part : parts) {
                if (const FieldDef* field = Fixed_Field(part, static_cast<int>(i), known)) fields.push_back(field);
            }
            known[i] = Is_Fixed(select.tables[i], fields);
        }
    }
    return std::all_of(known.begin(), known.end(), [](bool each) { return each; });
}

}  // namespace tallmar::sql
