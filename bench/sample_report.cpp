#include "sample_report.h"

#include <cctype>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/db/sql_text.h"

namespace tallmar {

namespace {

constexpr int kCapitalLines = 4;  // 1 to 4 bear the sublines; line 5 stays alone
constexpr int kFirstOtherLine = 6, kLastOtherLine = 23;

struct ChartLine {
    Currency number;
    bool general = false;
};

// `count` lines spread over the whole numbers `first` to `last`: 1, 1.01, 1.02, 2, 2.01, ...
void Append_Lines(std::vector<ChartLine>& chart, int first, int last, int count, bool general) {
    const int families = last - first + 1;
    for (int family = 0; family < families; ++family) {
        const int members = count / families + (family < count % families ? 1 : 0);
        for (int subline = 0; subline < members; ++subline) {
            const Currency hundredths = Currency::From_Scaled(subline * (Currency::kScale / 100));
            chart.push_back({Currency(first + family) + hundredths, general});
        }
    }
}

std::vector<ChartLine> Wide_Chart(int general, int lines) {
    std::vector<ChartLine> chart;
    Append_Lines(chart, 1, kCapitalLines, general - 1, true);
    chart.push_back({5_cur, true});
    Append_Lines(chart, kFirstOtherLine, kLastOtherLine, lines - general, false);
    return chart;
}

}  // namespace

void Fill_Sample(Report& report) {
    std::ifstream file(TALLMAR_SOURCE_DIR "/samples/fy2016/cells.csv");
    if (!file) throw std::runtime_error("samples/fy2016/cells.csv is missing");
    std::string line;
    std::getline(file, line);  // the head
    while (std::getline(file, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> parts;
        for (std::size_t start = 0; parts.size() < 3; start = line.find(',', start) + 1) {
            parts.push_back(line.substr(start, line.find(',', start) - start));
            if (parts.size() == 3) parts.push_back(line.substr(line.find(',', start) + 1));
        }
        const std::string column = (std::isdigit(parts[2][0]) != 0 ? "Col_" : "") + parts[2];
        const std::string where = parts[1].empty() ? ";" : Sql(" WHERE LineNum = ", parts[1], ";");
        const auto store = [&] {
            return report.Execute(Sql("UPDATE ", parts[0], " SET ", column, " = ", Quoted(parts[3]), where));
        };
        if (store() == 0 && !parts[1].empty()) {
            report.Execute(Sql("INSERT INTO ", parts[0], " (LineNum) VALUES (", parts[1], ");"));
            store();
        }
    }
}

void Use_Wide_Chart(Report& report, int general, int lines) {
    const std::vector<ChartLine> chart = Wide_Chart(general, lines);
    report.Execute("DELETE * FROM CostCenters;");
    for (const ChartLine& line : chart) {
        const bool accumulated = line.number == 5_cur;
        report.Execute(
            Sql("INSERT INTO CostCenters (LineNum,LineType,CCNum,CCGroup,CCType,CCName,MaxLines,StatLabel1,StatLabel2)"
                " VALUES (",
                line.number, ",'S',", line.number, ",", static_cast<int>(line.number.Scaled() / 100),
                line.general ? ",'G'" : ",'A'", ",'Cost center ", line.number, "',9",
                accumulated ? ",'(Accumulated','Cost)');" : ",'(Square','Feet)');"));
    }
    for (const char* item : {"A", "B1"}) report.Build(item);
    int place = 0;
    for (const ChartLine& line : chart) {
        ++place;
        report.Cell("A", line.number, 3, 1000 + 137 * place);
        for (const ChartLine& column : chart) {
            if (!column.general || column.number == 5_cur || column.number >= line.number) continue;
            const int hundredths = static_cast<int>(column.number.Scaled() / 100);
            report.Cell("B1", line.number, "CC_" + std::to_string(hundredths), (place * 7 + hundredths) % 90);
        }
    }
    report.Calc("A");
}

}  // namespace tallmar
