// What the tests of the report floor share: a platform, a folder, and reports to open and close.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "common/dates.h"
#include "common/sql_text.h"
#include "common/worksheets.h"
#include "report/new_report.h"
#include "report/open_report.h"
#include "report/registry.h"
#include "report/store.h"
#include "report/upgrade.h"
#include "support/report_fixture.h"

namespace tallmar {

// Its tests are inside the report: Cell("A", 5, 3, 1200); Calc(). No catalogue is installed until a report is begun
// with one.
class ReportTest : public ::testing::Test, protected Report {
  protected:
    // An empty database in `db`, in memory.
    void Empty_Database() {
        Take_Path(folder.File("Empty.CRF"));
        ASSERT_TRUE(CreateCRF());
    }
    // A whole report of the fiscal year, open, with the worksheets of the catalogue installed.
    void New_Report(Date start = Date_Of(2015, 10, 1), Date end = Date_Of(2016, 9, 30),
                    std::string_view name = "Agency.CRF") {
        NewReportEntries entries;
        entries.providerNumber = "14-7100";
        entries.facilityName = "Harbor Home Health";
        ASSERT_TRUE(Create_CRF(folder.File(name), entries, {start, end}));
    }

    static std::string Bytes(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void Write(const std::string& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }
    // The names in the folder, in order.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }
};

}  // namespace tallmar
