// The files of the dialect's corpus: blocks of lines, and values as they are written in them. README.md describes the
// format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/value.h"

namespace tallmar {

struct Block {
    int line = 0;
    std::string command;             // the first word
    std::string arguments;           // the rest of the first line
    std::vector<std::string> body;   // up to "----"
    std::vector<std::string> after;  // behind it
    bool divided = false;
    std::string Statement() const;
};

// What a case found wrong.
struct Failure {
    std::string text;
};

// Blocks are parted by empty lines; lines between them that begin with # are remarks. Of a page ".md" only what stands
// between ```dialect and ``` counts.
std::vector<Block> Read_Blocks(const std::string& file);

std::string Join(const std::vector<std::string>& parts, std::string_view between);
std::vector<std::string> Split(const std::string& text, std::string_view between);
// The first word of `text`, which is left with what follows the blanks behind it.
std::string Take_Word(std::string& text);

// Values as the files write them: NULL, 12, 5.01, "text" with its quotes doubled, #10/1/2015#, True, False.
Value Parse_Value(std::string_view text);
// A value of another kind than its column's type is shown as the mistake that it is.
std::string Show(const Value& value, FieldType type);
// I whole numbers, C Currency, D Single and Double, T texts, B Boolean, d dates.
char Type_Letter(FieldType type);

}  // namespace tallmar
