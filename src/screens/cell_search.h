// Finding cells by what a person types: texts without regard to case, amounts as numbers.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screens/dispatch.h"

namespace tallmar {

class CellSearch {
  public:
    explicit CellSearch(std::string_view typed);

    // The cell shows the text, or holds the amount or one that begins as it does: "402600", "4026" and "402,600" find
    // 402,600; "-3180" and "(3,180)" find (3,180). A blank finds nothing.
    bool Matches(std::string_view shown, const Value& value) const;

  private:
    std::string text_;   // in upper case
    std::string plain_;  // an amount, or its beginning, as Edit_Text writes it; empty: it is none
    std::optional<double> amount_;
};

// A cell of the open report, in the form that shows it.
struct FoundCell {
    FormMode mode;
    std::string item;
    std::size_t row;  // of the form, from 0
    std::string field;
};
// In the form's order, row by row.
std::vector<FoundCell> Find_In_Form(FormMode mode, const Item& item, const CellSearch& search);
// The worksheets of the registry in the order of their names, each in its form of `mode`, or else in its other one.
struct SearchedForm {
    FormMode mode;
    std::string item;
};
std::vector<SearchedForm> Searched_Forms(FormMode mode);

}  // namespace tallmar
