#include "common/csv.h"

#include "common/text.h"
#include "common/text_input.h"

namespace tallmar {

namespace {

constexpr int kEnd = std::istream::traits_type::eof();

std::string As_Utf8(std::string field) {
    return Is_Valid_Utf8(field) ? field : From_Cp1252(field);
}

bool Is_Line_Break(int c) {
    return c == '\n' || c == '\r';
}

// Past the rest of a line; a CR LF counts once.
void Skip_Line(std::istream& in) {
    int c = in.get();
    while (c != kEnd && !Is_Line_Break(c)) c = in.get();
    if (c == '\r' && in.peek() == '\n') in.get();
}

// The field that is being read.
struct FieldText {
    std::string text;
    bool quoted = false;  // inside quotes
    bool closed = false;  // its closing quote has been read
};

// Takes a character that ends neither the field nor the record; `next` comes behind it. True where `next` is taken,
// too.
bool Take(FieldText& field, char c, int next, std::string& trouble) {
    if (field.quoted) {
        const bool doubled = c == '"' && next == '"';
        if (c == '"' && !doubled) {
            field.quoted = false;
            field.closed = true;
        } else {
            field.text += c;
        }
        return doubled;
    }
    if (c == '"' && field.text.empty() && !field.closed) {
        field.quoted = true;
        return false;
    }
    if (field.closed) trouble = "A quoted field goes on behind its closing quote.";
    field.text += c;
    return false;
}

void Finish_Field(FieldText& field, CsvRecord& record) {
    if (field.text.find('\0') != std::string::npos) {
        record.trouble = "The line holds a zero byte.  Save the list as UTF-8 text.";
    }
    record.fields.push_back(As_Utf8(std::move(field.text)));
    field = {};
}

}  // namespace

CsvRecord CsvReader::End_With(std::string_view trouble, long line) {
    ended_ = true;
    return {.line = line, .fields = {}, .trouble = std::string(trouble)};
}

void CsvReader::Pass_Blank_Lines() {
    for (int c = in_.peek(); Is_Line_Break(c) || c == '#'; c = in_.peek()) {
        Skip_Line(in_);
        ++line_;
    }
}

std::optional<CsvRecord> CsvReader::Next() {
    if (ended_) return std::nullopt;
    if (!started_) {
        started_ = true;
        if (Pass_Byte_Order_Mark(in_) == TextStart::Utf16) return End_With(kUtf16Trouble, line_);
    }
    Pass_Blank_Lines();
    if (in_.peek() == kEnd) return std::nullopt;
    CsvRecord record{.line = line_, .fields = {}, .trouble = {}};
    Read_Fields(record);
    return record;
}

void CsvReader::Read_Fields(CsvRecord& record) {
    FieldText field;
    for (std::size_t bytes = 1;; ++bytes) {
        const int c = in_.get();
        if (bytes > kMaxRecord) {
            record = End_With("The line is longer than a million characters.  The rest of the list was not read.",
                              record.line);
            return;
        }
        if (c == kEnd) {
            if (field.quoted) record.trouble = "A quote is opened and never closed.";
            return Finish_Field(field, record);
        }
        if (Is_Line_Break(c)) {
            const bool two = c == '\r' && in_.peek() == '\n';
            if (two) in_.get();
            ++line_;
            if (!field.quoted) return Finish_Field(field, record);
            field.text += two ? "\r\n" : "\n";
        } else if (c == ',' && !field.quoted) {
            Finish_Field(field, record);
        } else if (Take(field, static_cast<char>(c), in_.peek(), record.trouble)) {
            in_.get();
        }
    }
}

}  // namespace tallmar
