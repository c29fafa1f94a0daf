#include "db/row.h"

#include "common/db_error.h"
#include "common/text.h"

namespace tallmar {

const Value& Row::operator[](std::string_view name) const {
    static const Value kNothing;
    for (std::size_t i = 0; names_ != nullptr && i < names_->size(); ++i) {
        if (Same_Text((*names_)[i], name)) return values_.empty() ? kNothing : values_[i];
    }
    throw DbError(DbErrorCode::ItemNotFound, name);
}

const Value& Row::operator[](int position) const {
    static const Value kNothing;
    if (names_ == nullptr || position < 0 || static_cast<std::size_t>(position) >= names_->size()) {
        throw DbError(DbErrorCode::ItemNotFound, std::to_string(position));
    }
    return values_.empty() ? kNothing : values_[static_cast<std::size_t>(position)];
}

}  // namespace tallmar
