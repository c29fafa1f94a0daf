// One row read whole.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"

namespace tallmar {

class Row {
  public:
    Row() = default;
    // Rows of one table share their names.
    using Names = std::shared_ptr<const std::vector<std::string>>;
    Row(Names names, std::vector<Value> values) : names_(std::move(names)), values_(std::move(values)) {}
    Row(std::vector<std::string> names, std::vector<Value> values)
        : Row(std::make_shared<const std::vector<std::string>>(std::move(names)), std::move(values)) {}
    // False where the statement gave no row; every value then reads as Null.
    explicit operator bool() const { return !values_.empty(); }
    // Without regard to case. Throws ItemNotFound for a name that the statement does not have.
    const Value& operator[](std::string_view name) const;
    const Value& operator[](int position) const;
    // In the order of the statement; null in a row of nothing.
    const Names& Field_Names() const { return names_; }

  private:
    Names names_;  // null in a row of nothing
    std::vector<Value> values_;
};

}  // namespace tallmar
