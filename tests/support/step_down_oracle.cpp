#include "support/step_down_oracle.h"

#include <algorithm>
#include <cmath>

namespace tallmar::oracle {

namespace {

constexpr Line kTotal = 2900, kCost = 3000, kUnit = 3100;
constexpr double kScale = 10'000;

// Halves, within a millionth, away from zero; all else to the nearest.
double Round(double value, int digits) {
    const double power = digits == 6 ? 1e6 : 1;
    const double x = value * power;
    if (std::fabs(std::fabs(x - std::trunc(x)) - 0.5) < 0.000001) {
        return (std::trunc(x) + (x > 0 ? 1 : -1)) / power;
    }
    return std::floor(x + 0.5) / power;
}

Line Number(const std::string& column) {
    return std::stoi(column.substr(column.find('_') + 1));
}

bool Is(const std::string& column, const std::string& prefix) {
    return column.rfind(prefix, 0) == 0;
}

struct Pass {
    const Case& given;
    Result out;
    std::vector<std::string> bColumns, b1Columns;
    std::size_t subTotalAt = 0;  // counted from NetExpenses, 0: not found

    explicit Pass(const Case& c) : given(c), bColumns(B_Columns(c.chart)), b1Columns(B1_Columns(c.chart)) {
        out.b1 = c.b1;
        out.overrides = c.overrides;
    }

    Amount& B(Line line, const std::string& column) { return out.b[{line, column}]; }
    Statistic& B1(Line line, const std::string& column) { return out.b1[{line, column}]; }
    bool Has_B1(const std::string& column) const { return std::ranges::count(b1Columns, column) > 0; }

    void Start_Empty() {
        std::vector<Line> lines;
        for (const CostCenter& cc : given.chart) lines.push_back(cc.line);
        lines.push_back(kTotal);
        for (const Line line : lines) {
            for (const std::string& column : bColumns) {
                const Line from = column == "NetExpenses" ? 0
                                  : column == "SubTotal"  ? 500
                                  : column == "Total"     ? 600
                                                          : Number(column);
                B(line, column) = line >= from ? Amount{0} : Amount{};
            }
        }
    }

    void Replay_Overrides() {
        std::vector<Override> kept;
        for (const Override& o : out.overrides) {
            if (!Has_B1(o.column)) continue;
            kept.push_back(o);
            if (out.b1.contains({o.row, o.column})) B1(o.row, o.column) = o.amount;
        }
        out.overrides = kept;
    }

    void Replay_Links() {
        std::vector<Link> links = given.links;
        std::ranges::sort(links, {}, &Link::to);
        for (const Link& link : links) {
            const std::string to = "CC_" + std::to_string(link.to), from = "CC_" + std::to_string(link.from);
            for (const CostCenter& cc : given.chart) {
                if (cc.line > link.to) B1(cc.line, to) = B1(cc.line, from);
            }
            Replay_Overrides();
        }
    }

    void Bring_In_Net_Expenses() {
        std::int64_t total = 0;
        for (const CostCenter& cc : given.chart) {
            if (cc.lineType && *cc.lineType != "T") B(cc.line, "NetExpenses") = cc.netExpenses.value_or(0);
            total += *B(cc.line, "NetExpenses");
        }
        B(kTotal, "NetExpenses") = total;
    }

    // `at` counts from NetExpenses, as the first statistic of B-1 does.
    void Sub_Total(std::size_t at) {
        if (at >= bColumns.size() || bColumns[at] != "SubTotal") return;
        subTotalAt = at;
        std::vector<Line> lines{kTotal};
        for (const CostCenter& cc : given.chart) lines.push_back(cc.line);
        for (const Line line : lines) {
            if (line < 400) continue;
            Amount sum = 0;
            for (std::size_t i = 0; i < at; ++i) {
                const Amount cell = B(line, bColumns[i]);
                sum = sum && cell ? Amount{*sum + *cell} : Amount{};
            }
            B(line, "SubTotal") = sum;
        }
        std::int64_t total = 0;
        for (const CostCenter& cc : given.chart) {
            if (cc.line >= 500) total += B(cc.line, "SubTotal").value_or(0);
        }
        B(kTotal, "SubTotal") = total;
    }

    double Sum_Below(Line own, const std::string& column, bool positiveOnly = false) {
        double sum = 0;
        for (const CostCenter& cc : given.chart) {
            const double cell = B1(cc.line, column).value_or(0);
            if (cc.line > own && (!positiveOnly || cell > 0)) sum += cell;
        }
        return sum;
    }

    void Accumulate(const std::string& column, Line own) {
        const auto orZero = [&](Line line, const std::string& name) {
            return static_cast<double>(out.b.contains({line, name}) ? B(line, name).value_or(0) : 0);
        };
        for (const CostCenter& cc : given.chart) {
            const Line line = cc.line;
            Statistic& cell = B1(line, column);
            if (given.agOption == 1 && own == 502) {
                if (line >= 600 && line < 1500) cell = (orZero(line, "SubTotal") + orZero(line, "CC_501")) / kScale;
                if (line >= 1500) cell = 0;
            } else if (given.agOption == 1 && own == 503) {
                if (line >= 600) cell = 0;
                if (line >= 1500 && line < 2400) {
                    cell = (orZero(line, "SubTotal") + orZero(line, "CC_501") + orZero(line, "CC_502")) / kScale;
                }
            } else if (given.agOption == 2) {
                if (own < 500 || own >= 600 || line < own) continue;
                double sum = orZero(line, "SubTotal");
                for (Line earlier = 501; earlier < own; ++earlier) sum += orZero(line, "CC_" + std::to_string(earlier));
                cell = sum / kScale;
            } else if (line > own) {
                const Amount subTotal = B(line, "SubTotal");
                cell = subTotal ? Statistic{static_cast<double>(*subTotal) / kScale} : Statistic{};
            }
        }
    }

    void Reconcile(const std::string& recon, const std::string& column, Line own, double cost) {
        B1(own, recon) = -cost;
        Accumulate(column, own);
        B1(own, column) = Sum_Below(own, column);
        for (const Override& o : out.overrides) {
            if (o.column != column || o.amount != -1 || !out.b1.contains({o.row, column})) continue;
            const Statistic accumulated = B1(o.row, column);
            B1(o.row, recon) = accumulated ? Statistic{-*accumulated} : Statistic{};
            B1(o.row, column) = -1;
        }
        B1(own, column) = B1(own, column).value_or(0) + Sum_Below(own, recon);
    }

    void Allocate(const std::string& column, Line own, double cost, double unit, bool recon) {
        double allocated = 0;
        Line most = 0;
        for (const CostCenter& cc : given.chart) {
            if (cc.line <= own) continue;
            Amount& cell = B(cc.line, column);
            if (cc.lineType && *cc.lineType != "T") {
                const Statistic statistic = B1(cc.line, column);
                if (recon && statistic == -1.0) {
                    cell = 0;
                } else if (!statistic) {
                    cell.reset();
                } else {
                    cell = std::llround(Round(*statistic * unit, 0) * kScale);
                }
                allocated += static_cast<double>(cell.value_or(0)) / kScale;
            }
            if (most == 0 || (cell && (!B(most, column) || *cell > *B(most, column)))) most = cc.line;
        }
        if (allocated != cost && B(most, column)) *B(most, column) += std::llround((cost - allocated) * kScale);
        std::int64_t total = 0;
        for (const CostCenter& cc : given.chart) {
            if (cc.line > own) total += B(cc.line, column).value_or(0);
        }
        B(kTotal, column) = total;
    }

    void Column(const std::string& column, bool recon) {
        const Line own = Number(column);
        B1(own, column) = Sum_Below(own, column);
        double cost = static_cast<double>(B(own, "NetExpenses").value_or(0)) / kScale;
        for (const std::string& earlier : bColumns) {
            if (!Is(earlier, "CC_")) continue;
            if (Number(earlier) >= own) break;
            cost += static_cast<double>(B(own, earlier).value_or(0)) / kScale;
        }
        cost = Round(cost, 0);
        B(own, column) = std::llround(cost * kScale);
        B1(kCost, column) = cost;
        if (recon) Reconcile("Recon_" + std::to_string(own), column, own, cost);
        B1(kTotal, column) = Sum_Below(own, column, true);
        const double base = B1(own, column).value_or(0);
        const double unit = base == 0 ? 0 : Round(cost / base, 6);
        B1(kUnit, column) = unit;
        if (cost < 0) {
            B(kTotal, column) = std::llround(cost * kScale);
        } else {
            Allocate(column, own, cost, unit, recon);
        }
    }

    void Total() {
        std::int64_t total = 0;
        for (const CostCenter& cc : given.chart) {
            if (cc.line < 600) continue;
            if (subTotalAt > 0) {
                Amount sum = B(cc.line, "SubTotal");
                for (std::size_t i = subTotalAt + 1; bColumns[i] != "Total"; ++i) {
                    const Amount cell = B(cc.line, bColumns[i]);
                    sum = sum && cell ? Amount{*sum + *cell} : Amount{};
                }
                B(cc.line, "Total") = sum;
            }
            total += B(cc.line, "Total").value_or(0);
        }
        B(kTotal, "Total") = total;
    }

    void Run() {
        Start_Empty();
        Replay_Links();
        Bring_In_Net_Expenses();
        for (std::size_t i = 0; i < b1Columns.size(); ++i) {
            const bool recon = Is(b1Columns[i], "Recon_");
            Sub_Total(i);
            if (recon) {
                for (const CostCenter& cc : given.chart) {
                    if (cc.line >= Number(b1Columns[i])) B1(cc.line, b1Columns[i]) = 0;
                }
                ++i;
                Sub_Total(i);
            }
            Column(b1Columns[i], recon);
        }
        Total();
    }
};

}  // namespace

std::vector<std::string> B1_Columns(const std::vector<CostCenter>& chart) {
    std::vector<std::string> columns;
    for (const CostCenter& cc : chart) {
        if (!cc.generalService) continue;
        if (cc.accumulated) columns.push_back("Recon_" + std::to_string(cc.line));
        columns.push_back("CC_" + std::to_string(cc.line));
    }
    return columns;
}

std::vector<std::string> B_Columns(const std::vector<CostCenter>& chart) {
    std::vector<std::string> columns{"NetExpenses"};
    for (const CostCenter& cc : chart) {
        if (cc.generalService && cc.line < 500) columns.push_back("CC_" + std::to_string(cc.line));
    }
    columns.emplace_back("SubTotal");
    for (const CostCenter& cc : chart) {
        if (cc.generalService && cc.line >= 500) columns.push_back("CC_" + std::to_string(cc.line));
    }
    columns.emplace_back("Total");
    return columns;
}

Result Step_Down(const Case& given) {
    Pass pass(given);
    pass.Run();
    return pass.out;
}

}  // namespace tallmar::oracle
