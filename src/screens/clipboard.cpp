#include "screens/clipboard.h"

#include <algorithm>
#include <cstddef>

namespace tallmar {

namespace {

constexpr std::string_view kSeparators = "\t\r\n";

// One cell from `at` on, which is then at the character behind it.
std::string Take_Cell(std::string_view text, std::size_t& at) {
    std::string cell;
    const bool isQuoted = at < text.size() && text[at] == '"';
    // A quote that is never closed is a plain one: inches, not a cell of many lines.
    if (isQuoted && text.find('"', at + 1) != std::string_view::npos) {
        std::size_t to = at + 1;
        for (; to < text.size(); ++to) {
            if (text[to] != '"') {
                cell += text[to];
            } else if (to + 1 < text.size() && text[to + 1] == '"') {
                cell += text[to++];
            } else {
                break;
            }
        }
        const bool ends = to + 1 >= text.size() || kSeparators.find(text[to + 1]) != std::string_view::npos;
        if (to < text.size() && ends) {
            at = to + 1;
            return cell;
        }
        cell.clear();
    }
    const std::size_t end = std::min(text.find_first_of(kSeparators, at), text.size());
    cell = text.substr(at, end - at);
    at = end;
    return cell;
}

}  // namespace

ClipboardRows Parse_Clipboard(std::string_view text) {
    ClipboardRows rows;
    // Some programs end the text with a zero.
    text = text.substr(0, text.find('\0'));
    std::size_t at = 0;
    while (at < text.size()) {
        std::vector<std::string>& row = rows.emplace_back();
        row.push_back(Take_Cell(text, at));
        while (at < text.size() && text[at] == '\t') row.push_back(Take_Cell(text, ++at));
        if (at < text.size() && text[at] == '\r') ++at;
        if (at < text.size() && text[at] == '\n') ++at;
    }
    return rows;
}

}  // namespace tallmar
