// Comma-separated values: quoted fields hold commas, doubled quotes and line breaks.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

struct CsvRecord {
    long line = 0;  // of the record's first character, from 1
    std::vector<std::string> fields;
    std::string trouble;  // what is wrong with the record; empty where it reads well
};

// Reads records one after another. Lines end with LF, CR LF or CR; a byte order mark is passed over; bytes that are
// no UTF-8 are taken as code page 1252. A record with an open quote at the end of the file comes back with its trouble
// said. So does one longer than kMaxRecord bytes, and UTF-16: these are the last, for what follows may be the inside of
// a quoted text.
class CsvReader {
  public:
    static constexpr std::size_t kMaxRecord = 1 << 20;

    explicit CsvReader(std::istream& in) : in_(in) {}
    // Nothing at the end. Blank lines and lines that begin with # are passed over.
    std::optional<CsvRecord> Next();

  private:
    CsvRecord End_With(std::string_view trouble, long line);
    void Pass_Blank_Lines();
    void Read_Fields(CsvRecord& record);

    std::istream& in_;
    long line_ = 1;
    bool started_ = false;
    bool ended_ = false;
};

}  // namespace tallmar
