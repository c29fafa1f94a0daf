#include "sample_report.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/csv.h"
#include "common/sql_text.h"
#include "screens/cell_batch.h"

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

void Fill_Sample(Report& report, const std::string& year) {
    const std::string path = TALLMAR_SOURCE_DIR "/samples/" + year + "/cells.csv";
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + " is missing");
    report.platform.Set_Now(Date_Of(2017, 2, 1));  // every sample's year is over
    CsvReader reader(file);
    reader.Next();  // the head
    std::vector<CellText> cells;
    while (const auto record = reader.Next()) {
        cells.push_back({record->fields.at(0), record->fields.at(1), record->fields.at(2), record->fields.at(3)});
    }
    for (const std::optional<Refusal>& refusal : Enter_Cells(cells)) {
        if (refusal) throw std::runtime_error(path + ": " + refusal->text);
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
