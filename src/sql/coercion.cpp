#include "sql/coercion.h"

#include <algorithm>

namespace tallmar::sql {

namespace {

struct TypeRow {
    std::string_view name;
    Rep rep;
    FieldType field;
};
constexpr std::array<TypeRow, kTypeCount> kTypes = {{
    {"Null", Rep::None, FieldType::Text},
    {"Boolean", Rep::Boolean, FieldType::Boolean},
    {"Whole", Rep::Integer, FieldType::Long},
    {"Currency", Rep::Currency, FieldType::Currency},
    {"Decimal", Rep::Double, FieldType::Double},
    {"Double", Rep::Double, FieldType::Double},
    {"Date", Rep::Date, FieldType::Date},
    {"Text", Rep::Text, FieldType::Text},
    {"Condition", Rep::Boolean, FieldType::Boolean},
}};

constexpr Type N = Type::None, B = Type::Boolean, W = Type::Whole, C = Type::Currency, D = Type::Decimal,
               F = Type::Double, S = Type::Date, T = Type::Text, Q = Type::Condition;

using Row = std::array<Cell, kOperandTypes>;
using Matrix = std::array<Row, kOperandTypes>;

// The cells of the matrices, by what they do.
constexpr Cell kNull = {N, N, N, Form::Plain};
constexpr Cell kLong = {W, N, N, Form::Long};
constexpr Cell kAmount = {C, C, C, Form::Amount};
constexpr Cell kProduct = {C, C, C, Form::Product};
constexpr Cell kReal = {F, F, F, Form::Real};
constexpr Cell kSerial = {S, F, F, Form::Real};
constexpr Cell kJoin = {T, T, T, Form::Joined};
constexpr Cell kJoinAll = {T, T, T, Form::JoinedAll};
constexpr Cell kQuotient = {F, F, F, Form::Quotient};
constexpr Cell kWholeQuotient = {W, W, W, Form::WholeQuotient};
constexpr Cell kRest = {W, W, W, Form::Rest};
constexpr Cell kPower = {F, F, F, Form::Power};
// Beside the word Null the other side keeps its type; the value is Null.
constexpr Cell kOfWhole = {W, N, N, Form::Plain};
constexpr Cell kOfAmount = {C, N, N, Form::Plain};
constexpr Cell kOfReal = {F, F, F, Form::Plain};
constexpr Cell kOfSerial = {S, N, N, Form::Plain};
constexpr Cell kOfText = {T, N, N, Form::Plain};
// Comparisons
constexpr Cell kTest = {Q, N, N, Form::Plain};
constexpr Cell kTestAmount = {Q, C, C, Form::Plain};
constexpr Cell kTestReal = {Q, F, F, Form::Plain};
constexpr Cell kTestLeftReal = {Q, F, N, Form::Plain};
constexpr Cell kTestRightReal = {Q, N, F, Form::Plain};
constexpr Cell kTestDate = {Q, S, S, Form::Plain};
constexpr Cell kTestText = {Q, N, N, Form::TextTest};

// Rows: the left operand. Columns: the right one, Null Boolean Whole Currency Decimal Double Date Text.
constexpr Matrix kAdd = {{
    /* Null     */ {kNull, kOfWhole, kOfWhole, kOfAmount, kOfReal, kOfReal, kOfSerial, kOfText},
    /* Boolean  */ {kOfWhole, kLong, kLong, kAmount, kReal, kReal, kSerial, kReal},
    /* Whole    */ {kOfWhole, kLong, kLong, kAmount, kReal, kReal, kSerial, kReal},
    /* Currency */ {kOfAmount, kAmount, kAmount, kAmount, kAmount, kReal, kSerial, kReal},
    /* Decimal  */ {kOfReal, kReal, kReal, kAmount, kReal, kReal, kSerial, kReal},
    /* Double   */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kSerial, kReal},
    /* Date     */ {kOfSerial, kSerial, kSerial, kSerial, kSerial, kSerial, kSerial, kSerial},
    /* Text     */ {kOfText, kReal, kReal, kReal, kReal, kReal, kSerial, kJoin},
}};
constexpr Matrix kSubtract = {{
    /* Null     */ {kNull, kOfWhole, kOfWhole, kOfAmount, kOfReal, kOfReal, kOfReal, kOfReal},
    /* Boolean  */ {kOfWhole, kLong, kLong, kAmount, kReal, kReal, kSerial, kReal},
    /* Whole    */ {kOfWhole, kLong, kLong, kAmount, kReal, kReal, kSerial, kReal},
    /* Currency */ {kOfAmount, kAmount, kAmount, kAmount, kAmount, kReal, kSerial, kReal},
    /* Decimal  */ {kOfReal, kReal, kReal, kAmount, kReal, kReal, kSerial, kReal},
    /* Double   */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kSerial, kReal},
    /* Date     */ {kOfSerial, kSerial, kSerial, kSerial, kSerial, kSerial, kReal, kSerial},
    /* Text     */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kSerial, kReal},
}};
constexpr Matrix kMultiply = {{
    /* Null     */ {kNull, kOfWhole, kOfWhole, kOfAmount, kOfReal, kOfReal, kOfReal, kOfReal},
    /* Boolean  */ {kOfWhole, kLong, kLong, kProduct, kReal, kReal, kReal, kReal},
    /* Whole    */ {kOfWhole, kLong, kLong, kProduct, kReal, kReal, kReal, kReal},
    /* Currency */ {kOfAmount, kProduct, kProduct, kProduct, kReal, kReal, kReal, kReal},
    /* Decimal  */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kReal, kReal},
    /* Double   */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kReal, kReal},
    /* Date     */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kReal, kReal},
    /* Text     */ {kOfReal, kReal, kReal, kReal, kReal, kReal, kReal, kReal},
}};
constexpr Matrix kCompare = {{
    /* Null     */ {kTest, kTest, kTest, kTest, kTest, kTest, kTest, kTest},
    /* Boolean  */ {kTest, kTest, kTest, kTestAmount, kTestRightReal, kTest, kTest, kTestRightReal},
    /* Whole    */ {kTest, kTest, kTest, kTestAmount, kTestRightReal, kTest, kTest, kTestRightReal},
    /* Currency */ {kTest, kTestAmount, kTestAmount, kTestAmount, kTestAmount, kTestReal, kTestReal, kTestReal},
    /* Decimal  */ {kTest, kTestLeftReal, kTestLeftReal, kTestAmount, kTestReal, kTestReal, kTestReal, kTestReal},
    /* Double   */ {kTest, kTest, kTest, kTestReal, kTestReal, kTest, kTest, kTestReal},
    /* Date     */ {kTest, kTest, kTest, kTestReal, kTestReal, kTest, kTest, kTestDate},
    /* Text     */ {kTest, kTestLeftReal, kTestLeftReal, kTestReal, kTestReal, kTestReal, kTestDate, kTestText},
}};

constexpr Matrix All(Cell cell) {
    Matrix matrix;
    for (Row& row : matrix) row.fill(cell);
    return matrix;
}

constexpr Matrix kArithmetic[kOpCount] = {
    kAdd,       kSubtract,   kMultiply,     All(kQuotient), All(kWholeQuotient),
    All(kRest), All(kPower), All(kJoinAll), kCompare,       kCompare,
    kCompare,   kCompare,    kCompare,      kCompare,
};

constexpr Cell To(Type type) {
    return {type, type, type, Form::Plain};
}

constexpr Matrix kUnified = {{
    /* Null     */ {To(N), To(B), To(W), To(C), To(D), To(F), To(S), To(T)},
    /* Boolean  */ {To(B), To(B), To(W), To(C), To(F), To(F), To(S), To(T)},
    /* Whole    */ {To(W), To(W), To(W), To(C), To(F), To(F), To(S), To(T)},
    /* Currency */ {To(C), To(C), To(C), To(C), To(C), To(F), To(S), To(T)},
    /* Decimal  */ {To(D), To(F), To(F), To(C), To(D), To(F), To(S), To(T)},
    /* Double   */ {To(F), To(F), To(F), To(F), To(F), To(F), To(S), To(T)},
    /* Date     */ {To(S), To(S), To(S), To(S), To(S), To(S), To(S), To(T)},
    /* Text     */ {To(T), To(T), To(T), To(T), To(T), To(T), To(T), To(T)},
}};

constexpr std::array<Cell, kOperandTypes> kNegated = {{
    {N, N, N, Form::Plain},   // Null
    {W, W, N, Form::Plain},   // Boolean
    {W, N, N, Form::Long},    // Whole
    {C, N, N, Form::Amount},  // Currency
    {D, N, N, Form::Plain},   // Decimal
    {F, N, N, Form::Plain},   // Double
    {S, N, N, Form::Plain},   // Date
    {F, F, N, Form::Plain},   // Text
}};

constexpr bool Is_Full(const Matrix& matrix) {
    return std::all_of(matrix.begin(), matrix.end(), [](const Row& row) {
        return std::all_of(row.begin(), row.end(), [](const Cell& cell) { return cell.form != Form::None; });
    });
}
static_assert(std::all_of(std::begin(kArithmetic), std::end(kArithmetic), Is_Full));
static_assert(Is_Full(kUnified));

// Columns: the type that is given. N: as it is.
constexpr Type kArguments[][kTypeCount] = {
    /* Value     */ {N, N, N, N, F, N, N, N, B},
    /* Number    */ {N, W, N, N, F, N, F, F, W},
    /* Real      */ {N, F, F, F, F, N, F, F, F},
    /* Whole     */ {N, W, N, W, W, W, W, W, W},
    /* Text      */ {N, T, T, T, T, T, T, N, T},
    /* Condition */ {Q, Q, Q, Q, Q, Q, Q, Q, N},
};

constexpr std::string_view kAsReal = "CAST($ AS REAL)";
constexpr std::string_view kAmountReal = "(CAST($ AS REAL)/10000.0)";
constexpr std::string_view kWords = "CAST($ AS TEXT)";
constexpr std::string_view kNotZero = "($<>0)";
constexpr std::string_view kFlag = "(-($<>0))";
constexpr std::string_view kSame = "$";

// Rows: from. Columns: to Null Boolean Whole Currency Decimal Double Date Text Condition. A Decimal is never cast
// by SQL: its literals are bound as what is wanted.
constexpr std::string_view kCasts[kTypeCount][kTypeCount] = {
    /* Null      */ {kSame, kSame, kSame, kSame, kSame, kSame, kSame, kSame, kSame},
    /* Boolean   */ {"", kSame, kSame, "($*10000)", "", kAsReal, kAsReal, kWords, kNotZero},
    /* Whole     */ {"", kFlag, kSame, "($*10000)", "", kAsReal, "t_serial($)", kWords, kNotZero},
    /* Currency  */
    {"", kFlag, "t_whole_c($)", kSame, "", kAmountReal, "t_serial(CAST($ AS REAL)/10000.0)", "t_text_c($)", kNotZero},
    /* Decimal   */ {"", "", "", "", kSame, "", "", "", ""},
    /* Double    */ {"", kFlag, "t_whole($)", "t_currency($)", "", kSame, "t_serial($)", "t_text_d($)", kNotZero},
    /* Date      */ {"", kFlag, "t_whole($)", "t_currency($)", "", kSame, kSame, "t_text_date($)", kNotZero},
    /* Text      */
    {"", "t_flag($)", "t_whole($)", "t_currency($)", "", "t_number($)", "t_date($)", kSame, "(t_number($)<>0)"},
    /* Condition */
    {"", "(-$)", "(-$)", "(-$*10000)", "", "CAST(-$ AS REAL)", "CAST(-$ AS REAL)", "CAST(-$ AS TEXT)", kSame},
};

}  // namespace

std::string_view Name_Of(Type type) {
    return kTypes[Index(type)].name;
}

Type Type_Of(FieldType type) {
    return Row_Of(type).type;
}

Rep Rep_Of(Type type) {
    return kTypes[Index(type)].rep;
}

FieldType Field_Type_Of(Type type) {
    return kTypes[Index(type)].field;
}

const Cell& Arithmetic(Op op, Type left, Type right) {
    return kArithmetic[static_cast<std::size_t>(op)][Index(left)][Index(right)];
}

const Cell& Unified(Type left, Type right) {
    return kUnified[Index(left)][Index(right)];
}

const Cell& Negated(Type operand) {
    return kNegated[Index(operand)];
}

Type Argument_Type(ArgRule rule, Type given) {
    const Type wanted = kArguments[static_cast<std::size_t>(rule)][Index(given)];
    return wanted == Type::None ? given : wanted;
}

std::string_view Cast_Sql(Type from, Type to) {
    return kCasts[Index(from)][Index(to)];
}

std::string Arithmetic_Table() {
    std::string table;
    for (std::size_t op = 0; op < kOpCount; ++op) {
        for (std::size_t left = 0; left < kOperandTypes; ++left) {
            for (std::size_t right = 0; right < kOperandTypes; ++right) {
                const Cell& cell = kArithmetic[op][left][right];
                for (const std::string_view part : {kTypes[left].name, kOpSigns[op], kTypes[right].name,
                                                    std::string_view("->"), Name_Of(cell.result)}) {
                    table += part;
                    table += ' ';
                }
                table.back() = '\n';
            }
        }
    }
    return table;
}

}  // namespace tallmar::sql
