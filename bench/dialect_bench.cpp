// Statements of the dialect, a second: compiled before (items_per_second) and cold, with the cache of plans emptied,
// beside their floor, which is the SQLite statements alone. Expected: ratio at most 3 for cached statements.
#include <benchmark/benchmark.h>

#include "common/sql_text.h"
#include "floor.h"
#include "report/open_report.h"
#include "support/temp_folder.h"

namespace tallmar {
namespace {

constexpr int kLines = 60;

// A chart of 60 lines with A and A-4 beside it, as the process-wide `db`.
class Tables {
  public:
    Tables() {
        Database created = DBEngine::CreateDatabase(folder_.File("bench.CRF"), ";LANGID=0x0409;CP=1252;COUNTRY=0");
        DBEngine::Finish_Creation(created);
        db = DBEngine::OpenDatabase(folder_.File("bench.CRF"));
        Job job(db);
        db.Execute(
            "CREATE TABLE A (LineNum Currency, CCName Text(40), Col_1 Currency, Col_2 Currency, Col_7 Currency)");
        db.Execute("CREATE TABLE A4 (LineNum Currency, Col_3 Currency, Col_4 Currency)");
        for (int line = 1; line <= kLines; ++line) {
            db.Execute(Sql("INSERT INTO A VALUES (", line, ", 'Center ", line, "', ", line * 1000, ".25, Null, 0);"));
            db.Execute(Sql("INSERT INTO A4 VALUES (", line, ", ", 1 + line % 20, ", ", line, ".5);"));
        }
        db.Execute("CREATE UNIQUE INDEX ndx ON A (LineNum);");
        db.Execute("CREATE UNIQUE INDEX ndx ON A4 (LineNum);");
        job.Keep();
    }
    ~Tables() { db.Close(); }
    Tables(const Tables&) = delete;
    Tables& operator=(const Tables&) = delete;

  private:
    TempFolder folder_;
};

// Each line of the form once: a statement that differs in its literals only.
void Update_Lines() {
    for (int line = 1; line <= kLines; ++line) {
        db.Execute(
            Sql("UPDATE A SET Col_1=", line * 100, ",Col_2=IIF(IsNull(Col_1),0,Col_1) WHERE LineNum = ", line, ";"));
    }
}

void Read_Lines() {
    for (int line = 1; line <= kLines; ++line) {
        benchmark::DoNotOptimize(db.Read_Row(Sql("SELECT Col_1, CCName FROM A WHERE LineNum = ", line, ";")));
    }
}

void Post_Through_Join() {
    db.Execute("UPDATE A SET Col_7 = 0;");
    db.Execute(
        "UPDATE A INNER JOIN A4 ON A.LineNum = A4.Col_3 SET A.Col_7 = A.Col_7+IIF(IsNull([A4].[Col_4]),0,[A4].[Col_4]) "
        "WHERE A4.LineNum<30;");
}

void Move_Through_The_Band() {
    db.Execute("UPDATE A SET LineNum = [LineNum]+10000.01 WHERE (LineNum>=20 And LineNum<=40);");
    db.Execute("UPDATE A SET LineNum = [LineNum]-10000.01 WHERE (LineNum>10000);");
}

void Walk_Rows() {
    for (Recordset rs = db.OpenRecordset("SELECT * FROM A ORDER BY LineNum;"); !rs.Eof(); rs.MoveNext()) {
        benchmark::DoNotOptimize(rs["Col_1"]);
    }
}

// One row a piece of work, with the statements that it issues.
struct Work {
    const char* name;
    void (*run)();
    int statements;
};
constexpr Work kWorks[] = {
    {"Update_Lines", Update_Lines, kLines},
    {"Read_Lines", Read_Lines, kLines},
    {"Post_Through_Join", Post_Through_Join, 2},
    {"Move_Through_The_Band", Move_Through_The_Band, 2},
    {"Walk_Rows", Walk_Rows, 1},
};

using Timer = void (*)(benchmark::State&, const std::function<void()>&);

void Time(benchmark::State& state, const Work& work, Timer timer) {
    const Tables tables;
    timer(state, work.run);
    state.SetItemsProcessed(state.iterations() * work.statements);
}

const bool registered = [] {
    for (const Work& work : kWorks) {
        const auto add = [&](const char* how, Timer timer) {
            benchmark::RegisterBenchmark((std::string(work.name) + "/" + how).c_str(), Time, work, timer)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("cached", Time_Beside_Floor);
        add("cold", Time_Cold_Beside_Floor);
    }
    return true;
}();

}  // namespace
}  // namespace tallmar
