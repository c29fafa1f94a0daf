// Bound expressions and tables as SQLite text, parameters and all.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "sql/bound.h"

namespace tallmar::sql {

// Collects one SQLite statement. Tables get the aliases t0, t1, ... in the order of FROM.
class SqlWriter {
  public:
    SqlWriter& operator<<(std::string_view sql) {
        text_.sql += sql;
        return *this;
    }
    // `inChain`: the value goes on into a chain whose end is checked.
    void Value(const Bound& bound, bool inChain = false);
    // A text gets the collation that compares without regard to case.
    void Term(const Bound& bound);
    void Name(std::string_view name);
    void Table(const BoundTable& table, int index);
    void Rowid(int table);
    void Parameter(Param param);
    // FROM and its tables. Throws TooComplex where two joins meet in a way that SQLite cannot express.
    void From(const BoundSelect& select);

    SqliteText Take() { return std::move(text_); }

  private:
    void Binary(const Bound& bound, bool inChain);
    void Joined(const Bound& bound);
    void Checked(const Bound& bound, bool inChain);
    void Call(const Bound& bound);
    void Around(std::string_view sql, const Bound& value, bool inChain);
    void List(const Bound& bound, std::size_t first);
    void Join(const BoundSelect& select, const BoundJoin& join);
    void Inner_Leaves(const BoundSelect& select, const BoundJoin& join);
    void Inner_Conditions(const BoundJoin& join);

    SqliteText text_;
    std::unordered_map<std::uint64_t, std::size_t> places_;
};

}  // namespace tallmar::sql
