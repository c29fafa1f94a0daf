// Comma-separated values: quoted fields hold commas, doubled quotes and line breaks.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace tallmar {

struct CsvRecord {
    long line = 0;  // of the record's first character, from 1
    std::vector<std::string> fields;
    std::string trouble;  // what is wrong with the record; empty where it reads well
};

// Reads records one after another. Lines end with LF, CR LF or CR; a byte order mark is passed over; bytes that are
// no UTF-8 are taken as code page 1252. A record longer than kMaxRecord bytes or with an open quote at the end of the
// file comes back with its trouble said.
class CsvReader {
  public:
    static constexpr std::size_t kMaxRecord = 1 << 20;

    explicit CsvReader(std::istream& in) : in_(in) {}
    // Nothing at the end. Blank lines and lines that begin with # are passed over.
    std::optional<CsvRecord> Next();

  private:
    std::istream& in_;
    long line_ = 1;
    bool started_ = false;
};

}  // namespace tallmar
