#include "common/csv.h"

#include "common/text.h"

namespace tallmar {

namespace {

constexpr int kEnd = std::istream::traits_type::eof();

std::string As_Utf8(std::string field) {
    return Is_Valid_Utf8(field) ? field : From_Cp1252(field);
}

// Past the rest of a line; a CR LF counts once.
void Skip_Line(std::istream& in) {
    for (int c = in.get(); c != kEnd; c = in.get()) {
        if (c == '\n') return;
        if (c == '\r') {
            if (in.peek() == '\n') in.get();
            return;
        }
    }
}

}  // namespace

std::optional<CsvRecord> CsvReader::Next() {
    if (!started_) {
        started_ = true;
        for (const int byte : {0xEF, 0xBB, 0xBF}) {
            if (in_.peek() != byte) break;
            in_.get();
        }
    }
    for (int c = in_.peek(); c == '\n' || c == '\r' || c == '#'; c = in_.peek()) {
        Skip_Line(in_);
        ++line_;
    }
    if (in_.peek() == kEnd) return std::nullopt;

    CsvRecord record{.line = line_, .fields = {}, .trouble = {}};
    std::string field;
    std::size_t bytes = 0;
    bool quoted = false;  // inside quotes
    bool closed = false;  // the field's closing quote has been read
    const auto finish_field = [&] {
        if (field.find('\0') != std::string::npos) record.trouble = "The line holds a zero byte.";
        record.fields.push_back(As_Utf8(std::move(field)));
        field.clear();
        closed = false;
    };
    while (true) {
        const int c = in_.get();
        if (++bytes > kMaxRecord) {
            record.trouble = "The line is longer than a million characters.";
            if (c != '\n' && c != kEnd) Skip_Line(in_);
            ++line_;
            return record;
        }
        if (c == kEnd) {
            if (quoted) record.trouble = "A quote is opened and never closed.";
            finish_field();
            return record;
        }
        const bool lineBreak = c == '\n' || c == '\r';
        if (lineBreak) {
            if (c == '\r' && in_.peek() == '\n') {
                in_.get();
                if (quoted) field += '\r';
            }
            ++line_;
        }
        if (quoted) {
            if (c == '"' && in_.peek() == '"') {
                in_.get();
                field += '"';
            } else if (c == '"') {
                quoted = false;
                closed = true;
            } else {
                field += lineBreak ? '\n' : static_cast<char>(c);
            }
        } else if (lineBreak) {
            finish_field();
            return record;
        } else if (c == ',') {
            finish_field();
        } else if (c == '"' && field.empty() && !closed) {
            quoted = true;
        } else {
            if (closed) record.trouble = "A quoted field goes on behind its closing quote.";
            field += static_cast<char>(c);
        }
    }
}

}  // namespace tallmar
