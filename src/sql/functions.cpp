#include "sql/functions.h"

#include <algorithm>
#include <charconv>

#include "sql/lexer.h"

namespace tallmar::sql {

namespace {

constexpr auto kScalar = FunctionKind::Scalar;
constexpr auto kAggregate = FunctionKind::Aggregate;
constexpr auto kPropagates = NullRule::Propagates;
constexpr auto kSeen = NullRule::Seen;
constexpr auto kAny = ArgRule::Value;
constexpr auto kNumber = ArgRule::Number;
constexpr auto kWhole = ArgRule::Whole;
constexpr auto kText = ArgRule::Text;
constexpr Type W = Type::Whole, C = Type::Currency, F = Type::Double, T = Type::Text, Q = Type::Condition,
               N = Type::None;

constexpr FunctionRow kFunctions[] = {
    // name, kind, arguments, rules, Null, forms, example, its result
    {"IIF", FunctionKind::Iif, 3, 3, {ArgRule::Condition, kAny, kAny}, kSeen, {}, "IIF(1>2,1/0,\"b\")", "b"},
    {"ISNULL", kScalar, 1, 1, {kAny}, kSeen, {{{N, "($1 IS NULL)", Q}}}, "IsNull(Null)", "-1"},

    {"INT",
     kScalar,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "$1", W}, {C, "t_int_c($1)", C}, {F, "t_int($1)", F, true}}},
     "Int(-0.5)",
     "-1"},
    {"FIX",
     kScalar,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "$1", W}, {C, "t_fix_c($1)", C}, {F, "t_fix($1)", F, true}}},
     "Fix(-1.5)",
     "-1"},
    {"ABS",
     kScalar,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "t_long(abs($1))", W}, {C, "t_abs_c($1)", C}, {F, "abs($1)", F}}},
     "Abs(\"-2.5\")",
     "2.5"},
    {"SGN", kScalar, 1, 1, {kNumber}, kPropagates, {{{N, "t_sgn($1)", W}}}, "Sgn(-7)", "-1"},
    {"ROUND",
     kScalar,
     1,
     2,
     {kNumber, kWhole},
     kPropagates,
     {{{W, "t_round($*)", W}, {C, "t_round_c($*)", C}, {F, "t_round($*)", F}}},
     "Round(2.5)",
     "2"},

    {"VAL", kScalar, 1, 1, {kText}, kPropagates, {{{N, "t_val($1)", F}}}, "Val(\"12ab\")", "12"},
    {"STR",
     kScalar,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "t_str(CAST($1 AS TEXT))", T}, {C, "t_str(t_text_c($1))", T}, {F, "t_str(t_text_d($1))", T}}},
     "Str(5.01) & Str(-2)",
     " 5.01-2"},
    {"FORMAT", kScalar, 2, 2, {kAny, kText}, kSeen, {{{N, "t_format($1,$T,$2)", T}}}, "Format(5, \"0000\")", "0005"},
    {"CHR", kScalar, 1, 1, {kWhole}, kPropagates, {{{N, "t_chr($1)", T}}}, "Chr(65)", "A"},
    {"SPACE", kScalar, 1, 1, {kWhole}, kPropagates, {{{N, "t_space($1)", T}}}, "\"a\" & Space$(2) & \"b\"", "a  b"},

    {"LEN", kScalar, 1, 1, {kText}, kPropagates, {{{N, "length($1)", W}}}, "Len(\"four\")", "4"},
    {"MID", kScalar, 2, 3, {kText, kWhole, kWhole}, kPropagates, {{{N, "t_mid($*)", T}}}, "Mid$(\"CC_501\",4)", "501"},
    {"LEFT", kScalar, 2, 2, {kText, kWhole}, kPropagates, {{{N, "t_left($1,$2)", T}}}, "Left(\"Cp2m\",3)", "Cp2"},
    {"RIGHT", kScalar, 2, 2, {kText, kWhole}, kPropagates, {{{N, "t_right($1,$2)", T}}}, "Right$(\"Kh4\",1)", "4"},
    {"UCASE", kScalar, 1, 1, {kText}, kPropagates, {{{N, "t_ucase($1)", T}}}, "UCase(\"Accum\")", "ACCUM"},
    {"LCASE", kScalar, 1, 1, {kText}, kPropagates, {{{N, "t_lcase($1)", T}}}, "LCase(\"Accum\")", "accum"},
    {"TRIM", kScalar, 1, 1, {kText}, kPropagates, {{{N, "trim($1)", T}}}, "Trim(\" a b \") & \".\"", "a b."},
    {"LTRIM", kScalar, 1, 1, {kText}, kPropagates, {{{N, "ltrim($1)", T}}}, "LTrim(\"  a\")", "a"},
    {"RTRIM", kScalar, 1, 1, {kText}, kPropagates, {{{N, "rtrim($1)", T}}}, "RTrim(\"a  \") & \".\"", "a."},
    {"INSTR",
     kScalar,
     2,
     2,
     {kText, kText},
     kPropagates,
     {{{N, "t_instr(1,$1,$2)", W}}},
     "InStr(\"(Accumulated\",\"cum\")",
     "4"},
    {"INSTR",
     kScalar,
     3,
     3,
     {kWhole, kText, kText},
     kPropagates,
     {{{N, "t_instr($1,$2,$3)", W}}},
     "InStr(3,\"abcabc\",\"a\")",
     "4"},

    {"SUM",
     kAggregate,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "sum(CAST($1 AS REAL))", F}, {C, "t_sum($1)", C}, {F, "t_real(sum($1))", F}}},
     "Sum(2)",
     "2"},
    {"AVG",
     kAggregate,
     1,
     1,
     {kNumber},
     kPropagates,
     {{{W, "avg($1)", F}, {C, "(t_sum($1)/(10000.0*count($1)))", F}, {F, "t_real(avg($1))", F}}},
     "Avg(2)",
     "2"},
    {"COUNT", kAggregate, 1, 1, {kAny}, kSeen, {{{N, "count($1)", W}}}, "Count(*)", "1"},
    {"MAX",
     kAggregate,
     1,
     1,
     {kAny},
     kPropagates,
     {{{T, "max($1 COLLATE TEXT1252)", T}, {N, "max($1)", N}}},
     "Max(\"a\")",
     "a"},
    {"MIN",
     kAggregate,
     1,
     1,
     {kAny},
     kPropagates,
     {{{T, "min($1 COLLATE TEXT1252)", T}, {N, "min($1)", N}}},
     "Min(3)",
     "3"},
};

}  // namespace

std::span<const FunctionRow> Functions() {
    return kFunctions;
}

const FunctionRow* Find_Function(std::string_view name, std::size_t arguments) {
    if (name.ends_with('$')) name.remove_suffix(1);
    const FunctionRow* found = nullptr;
    for (const FunctionRow& row : kFunctions) {
        if (!Is_Keyword(name, row.name)) continue;
        found = &row;
        if (arguments >= row.least && arguments <= row.most) break;
    }
    return found;
}

const FunctionForm& Form_For(const FunctionRow& function, Type first) {
    const auto& forms = function.forms;
    const auto fits = [&](const FunctionForm& form) {
        return !form.sql.empty() && (form.first == first || form.first == Type::None);
    };
    // The word Null goes with any form.
    const auto found = std::find_if(forms.begin(), forms.end(), fits);
    return found == forms.end() ? forms.front() : *found;
}

}  // namespace tallmar::sql
