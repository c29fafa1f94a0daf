#include "dialect/dialect_file.h"

#include <algorithm>
#include <fstream>

#include "common/dates.h"
#include "common/numbers.h"
#include "common/text.h"

namespace tallmar {

std::string Join(const std::vector<std::string>& parts, std::string_view between) {
    std::string joined;
    for (const std::string& part : parts)
        joined.append(joined.empty() && &part == &parts[0] ? "" : between).append(part);
    return joined;
}

std::string Block::Statement() const {
    return Join(body, "\n");
}

std::string Take_Word(std::string& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    std::string word = text.substr(0, end);
    text = std::string(Trim_Left(std::string_view(text).substr(end)));
    return word;
}

std::vector<std::string> Split(const std::string& text, std::string_view between) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(between, from)) != std::string::npos; from = at + between.size()) {
        parts.push_back(text.substr(from, at - from));
    }
    parts.push_back(text.substr(from));
    return parts;
}

std::vector<Block> Read_Blocks(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw Failure{"cannot read " + file};
    const bool page = file.ends_with(".md");
    std::vector<Block> blocks;
    bool fenced = !page, inside = false;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (page && line.starts_with("```")) {
            fenced = line == "```dialect";
            inside = false;
        } else if (!fenced) {
            continue;
        } else if (line.empty()) {
            inside = false;
        } else if (!inside) {
            if (line[0] == '#') continue;
            inside = true;
            Block block;
            block.line = number;
            block.command = Take_Word(line);
            block.arguments = line;
            blocks.push_back(block);
        } else if (line == "----" && !blocks.back().divided) {
            blocks.back().divided = true;
        } else {
            (blocks.back().divided ? blocks.back().after : blocks.back().body).push_back(line);
        }
    }
    return blocks;
}

Value Parse_Value(std::string_view text) {
    text = Trim(text);
    if (text == "NULL") return Null;
    if (text == "True" || text == "False") return text == "True";
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        return Replace(Replace(text.substr(1, text.size() - 2), "\"\"", "\""), "\\n", "\n");
    }
    if (text.size() >= 2 && text.front() == '#' && text.back() == '#') {
        if (const auto date = Parse_Date(text.substr(1, text.size() - 2))) return *date;
    } else if (const auto number = Parse_Number(text)) {
        // Exact where an amount can be; a Double with more places stays one.
        const auto amount = Currency::From_Text(text);
        if (amount && amount->To_Double() == *number) return *amount;
        return *number;
    }
    throw Failure{"no value: " + std::string(text)};
}

char Type_Letter(FieldType type) {
    switch (type) {
        case FieldType::Boolean:
            return 'B';
        case FieldType::Byte:
        case FieldType::Integer:
        case FieldType::Long:
            return 'I';
        case FieldType::Currency:
            return 'C';
        case FieldType::Single:
        case FieldType::Double:
            return 'D';
        case FieldType::Date:
            return 'd';
        case FieldType::Text:
        case FieldType::Memo:
        case FieldType::Char:
            return 'T';
    }
    return '?';
}

std::string Show(const Value& value, FieldType type) {
    const char letter = Type_Letter(type);
    if (value.Is_Null()) return "NULL";
    if (value.Is<bool>() && letter == 'B') return std::get<bool>(value.Get()) ? "True" : "False";
    if (value.Is<std::int32_t>() && letter == 'I') return std::to_string(std::get<std::int32_t>(value.Get()));
    if (value.Is<Currency>() && letter == 'C') return std::get<Currency>(value.Get()).To_Text();
    if (value.Is<double>() && letter == 'D') return Number_Text(std::get<double>(value.Get()));
    if (value.Is<Date>() && letter == 'd') return "#" + General_Date(std::get<Date>(value.Get())) + "#";
    if (value.Is<std::string>() && letter == 'T') {
        return "\"" + Replace(Replace(std::get<std::string>(value.Get()), "\"", "\"\""), "\n", "\\n") + "\"";
    }
    return "a value of kind " + std::to_string(value.Get().index()) + " in a column of type " + letter;
}

}  // namespace tallmar
