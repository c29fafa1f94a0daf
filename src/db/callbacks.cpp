// Every callback but those registered as seeing Null gives Null for a Null argument.
#include "db/callbacks.h"

#include <sqlite3.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

#include "common/currency.h"
#include "common/dates.h"
#include "common/format.h"
#include "common/numbers.h"
#include "common/text.h"
#include "db/convert.h"
#include "sql/functions.h"

namespace tallmar::db_detail {

using sql::NullRule;
using sql::Type;

namespace {

constexpr long kLongestRun = 1'000'000;  // characters that a function may make out of a number

[[noreturn]] void Fail(DbErrorCode code, std::string_view argument = {}) {
    throw CallbackError{code, std::string(argument)};
}

// The arguments and the result of one call.
class Call {
  public:
    Call(sqlite3_context* context, int count, sqlite3_value** values)
        : context_(context), count_(count), values_(values) {}

    int Count() const { return count_; }
    bool Is_Null(int i) const { return sqlite3_value_type(values_[i]) == SQLITE_NULL; }
    bool Is_Whole(int i) const { return sqlite3_value_type(values_[i]) == SQLITE_INTEGER; }
    bool Is_Text(int i) const { return sqlite3_value_type(values_[i]) == SQLITE_TEXT; }
    std::int64_t Int(int i) const { return sqlite3_value_int64(values_[i]); }
    double Real(int i) const { return sqlite3_value_double(values_[i]); }
    Currency Amount(int i) const { return Currency::From_Scaled(Int(i)); }
    std::string_view Text(int i) const {
        if (Is_Null(i)) return {};
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(values_[i]));
        if (text == nullptr) throw std::bad_alloc();
        return {text, static_cast<std::size_t>(sqlite3_value_bytes(values_[i]))};
    }
    long Small(int i) const { return static_cast<long>(Int(i)); }
    // The argument as a value, by its storage alone.
    Value Stored(int i) const {
        if (Is_Text(i)) return Text(i);
        return Real(i);
    }

    void Give(std::int64_t value) { sqlite3_result_int64(context_, value); }
    void Give(Currency value) { Give(value.Scaled()); }
    void Give(double value) {
        if (!std::isfinite(value)) Fail(DbErrorCode::Overflow);
        sqlite3_result_double(context_, value);
    }
    void Give(std::string_view text) {
        sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void Give(const std::string& text) { Give(std::string_view(text)); }
    void Give_Blob(std::string_view bytes) {
        sqlite3_result_blob64(context_, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
    }
    void Give_Argument(int i) { sqlite3_result_value(context_, values_[i]); }

  private:
    sqlite3_context* context_;
    int count_;
    sqlite3_value** values_;
};

void Give_Error(sqlite3_context* context, DbErrorCode code, std::string_view argument) noexcept {
    try {
        const std::string text = Encode_Error(code, argument);
        sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

// No exception may pass through SQLite.
template <class Body>
void Guarded(sqlite3_context* context, Body body) noexcept {
    try {
        body();
    } catch (const CallbackError& error) {
        Give_Error(context, error.code, error.argument);
    } catch (const std::overflow_error&) {
        Give_Error(context, DbErrorCode::Overflow, {});
    } catch (const std::invalid_argument&) {
        Give_Error(context, DbErrorCode::TypeMismatch, {});
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        Give_Error(context, DbErrorCode::Engine, error.what());
    }
}

// Checks

std::int64_t In_Range(std::int64_t value, std::int64_t low, std::int64_t high) {
    if (value < low || value > high) Fail(DbErrorCode::Overflow);
    return value;
}

std::int64_t As_Long(std::int64_t value) {
    return In_Range(value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
}

void Check_Long(Call& call) {
    if (!call.Is_Whole(0)) Fail(DbErrorCode::Overflow);
    call.Give(As_Long(call.Int(0)));
}

void Check_Real(Call& call) {
    call.Give(call.Real(0));
}

void Check_Range(Call& call) {
    call.Give(In_Range(call.Int(0), call.Int(1), call.Int(2)));
}

void Check_Not_Null(Call& call) {
    if (call.Is_Null(0)) Fail(DbErrorCode::NullNotAllowed, call.Text(1));
    call.Give_Argument(0);
}

void Check_Size(Call& call) {
    const std::string_view text = call.Text(0);
    const auto size = static_cast<std::size_t>(call.Int(1));
    if (text.size() > size && Length(text) > size) Fail(DbErrorCode::TextTooLong, call.Text(2));
    call.Give_Argument(0);
}

// Arithmetic

void Product(Call& call) {
    call.Give(call.Amount(0) * call.Amount(1));
}

void Quotient(Call& call) {
    if (call.Real(1) == 0) Fail(DbErrorCode::DivisionByZero);
    call.Give(call.Real(0) / call.Real(1));
}

void Whole_Quotient(Call& call) {
    if (call.Int(1) == 0) Fail(DbErrorCode::DivisionByZero);
    call.Give(As_Long(As_Long(call.Int(0)) / call.Int(1)));
}

void Rest(Call& call) {
    if (call.Int(1) == 0) Fail(DbErrorCode::DivisionByZero);
    call.Give(As_Long(call.Int(0)) % As_Long(call.Int(1)));
}

void Power(Call& call) {
    call.Give(std::pow(call.Real(0), call.Real(1)));
}

// Conversions

double Number_Of(std::string_view text) {
    if (const auto number = Parse_Number(text)) return *number;
    Fail(DbErrorCode::TypeMismatch, text);
}

void To_Number(Call& call) {
    call.Give(call.Is_Text(0) ? Number_Of(call.Text(0)) : call.Real(0));
}

// As a field of that type would take it.
template <FieldType type>
void To_Field(Call& call) {
    const Value value = call.Stored(0);
    try {
        const Value converted = Convert_For_Field(value, FieldDef{"", type, 0});
        if constexpr (type == FieldType::Boolean) {
            call.Give(std::int64_t{std::get<bool>(converted.Get()) ? -1 : 0});
        } else if constexpr (type == FieldType::Long) {
            call.Give(std::int64_t{std::get<std::int32_t>(converted.Get())});
        } else if constexpr (type == FieldType::Currency) {
            call.Give(std::get<Currency>(converted.Get()));
        } else if constexpr (type == FieldType::Single) {
            call.Give(std::get<double>(converted.Get()));
        } else {
            call.Give(std::get<Date>(converted.Get()).serial);
        }
    } catch (const DbError& error) {
        Fail(error.Code(), error.Code() == DbErrorCode::TypeMismatch ? call.Text(0) : std::string_view());
    }
}

void Amount_To_Whole(Call& call) {
    call.Give(std::int64_t{Value(call.Amount(0)).To_Long()});
}
void Amount_To_Text(Call& call) {
    call.Give(call.Amount(0).To_Text());
}
void Real_To_Text(Call& call) {
    call.Give(Number_Text(call.Real(0)));
}
void Date_To_Text(Call& call) {
    call.Give(General_Date(Date{call.Real(0)}));
}

// Functions

void Int_Amount(Call& call) {
    const Currency amount = call.Amount(0);
    // Only the lowest amounts have no floor.
    if (amount.Scaled() < std::numeric_limits<std::int64_t>::min() + Currency::kScale && !amount.Is_Whole()) {
        Fail(DbErrorCode::Overflow);
    }
    call.Give(amount.Int());
}
void Int_Real(Call& call) {
    call.Give(std::floor(call.Real(0)));
}
void Fix_Amount(Call& call) {
    call.Give(call.Int(0) - call.Int(0) % Currency::kScale);
}
void Fix_Real(Call& call) {
    call.Give(std::trunc(call.Real(0)));
}
void Abs_Amount(Call& call) {
    if (call.Int(0) == std::numeric_limits<std::int64_t>::min()) Fail(DbErrorCode::Overflow);
    call.Give(std::abs(call.Int(0)));
}
void Sgn(Call& call) {
    call.Give(std::int64_t{call.Real(0) > 0 ? 1 : call.Real(0) < 0 ? -1 : 0});
}

int Digits(Call& call) {
    if (call.Count() < 2) return 0;
    if (call.Int(1) < 0 || call.Int(1) > 15) Fail(DbErrorCode::WrongArguments, "Round");
    return static_cast<int>(call.Int(1));
}

void Round_Amount(Call& call) {
    std::int64_t unit = Currency::kScale;
    for (int i = Digits(call); i > 0 && unit > 1; --i) unit /= 10;
    const std::int64_t rest = call.Int(0) % unit;
    const std::int64_t whole = call.Int(0) - rest;
    const bool away = std::abs(rest) * 2 > unit || (std::abs(rest) * 2 == unit && whole / unit % 2 != 0);
    call.Give(Currency::From_Scaled(whole) + Currency::From_Scaled(!away ? 0 : rest < 0 ? -unit : unit));
}

void Round_Number(Call& call) {
    const int digits = Digits(call);
    if (call.Is_Whole(0)) {
        call.Give_Argument(0);
    } else {
        call.Give(Round_Even(call.Real(0), digits));
    }
}

void Val_Of(Call& call) {
    call.Give(Val(call.Text(0)));
}

// A number has a place for its sign.
void Str(Call& call) {
    const std::string_view digits = call.Text(0);
    call.Give(digits.starts_with('-') ? std::string(digits) : " " + std::string(digits));
}

// The argument as a value of the type that the binder has given it.
Value Typed(const Call& call, int i, Type type) {
    if (call.Is_Null(i)) return Null;
    switch (type) {
        case Type::Boolean:
            return call.Int(i) != 0;
        case Type::Whole:
            return static_cast<std::int32_t>(call.Int(i));
        case Type::Currency:
            return call.Amount(i);
        case Type::Date:
            return Date{call.Real(i)};
        case Type::Text:
            return call.Text(i);
        default:
            return call.Stored(i);
    }
}

void Format_Value(Call& call) {
    if (call.Is_Null(2)) return;
    call.Give(Format(Typed(call, 0, static_cast<Type>(call.Int(1))), call.Text(2)));
}

void Chr(Call& call) {
    const std::int64_t code = call.Int(0);
    if (code < 0 || code > 255) Fail(DbErrorCode::WrongArguments, "Chr");
    call.Give(From_Cp1252(std::string(1, static_cast<char>(code))));
}

long Run(Call& call, int i, std::string_view function) {
    if (call.Int(i) < 0) Fail(DbErrorCode::WrongArguments, function);
    return static_cast<long>(std::min<std::int64_t>(call.Int(i), std::numeric_limits<std::int32_t>::max()));
}

void Space(Call& call) {
    const long count = Run(call, 0, "Space");
    if (count > kLongestRun) Fail(DbErrorCode::Overflow);
    call.Give(std::string(static_cast<std::size_t>(count), ' '));
}

void Mid_Of(Call& call) {
    if (call.Int(1) < 1) Fail(DbErrorCode::WrongArguments, "Mid");
    const long count = call.Count() < 3 ? std::numeric_limits<std::int32_t>::max() : Run(call, 2, "Mid");
    call.Give(Mid(call.Text(0), call.Small(1), count));
}
void Left_Of(Call& call) {
    call.Give(Left(call.Text(0), Run(call, 1, "Left")));
}
void Right_Of(Call& call) {
    call.Give(Right(call.Text(0), Run(call, 1, "Right")));
}
void UCase(Call& call) {
    call.Give(To_Upper(call.Text(0)));
}
void LCase(Call& call) {
    call.Give(To_Lower(call.Text(0)));
}
void InStr(Call& call) {
    if (call.Int(0) < 1) Fail(DbErrorCode::WrongArguments, "InStr");
    call.Give(std::int64_t{In_Str(call.Small(0), call.Text(1), call.Text(2))});
}
void Like_Pattern(Call& call) {
    call.Give(std::int64_t{Like(call.Text(0), call.Text(1)) ? 1 : 0});
}

// The keys of a row of several tables as one value that orders as they do, one after the other; Null first.
void Row_Key(Call& call) {
    std::string key;
    for (int i = 0; i < call.Count(); ++i) {
        const auto number = static_cast<std::uint64_t>(call.Int(i)) ^ (std::uint64_t{1} << 63);
        for (int shift = 56; shift >= 0; shift -= 8) {
            key += call.Is_Null(i) ? '\0' : static_cast<char>((number >> shift) & 0xff);
        }
    }
    call.Give_Blob(key);
}

struct CallbackRow {
    const char* name;
    int arguments;  // -1: any number
    NullRule nulls;
    void (*body)(Call&);
};
constexpr auto kPropagates = NullRule::Propagates;
constexpr auto kSeen = NullRule::Seen;

constexpr CallbackRow kCallbacks[] = {
    {"t_long", 1, kPropagates, Check_Long},
    {"t_real", 1, kPropagates, Check_Real},
    {"t_range", 3, kPropagates, Check_Range},
    {"t_notnull", 2, kSeen, Check_Not_Null},
    {"t_sized", 3, kPropagates, Check_Size},
    {"t_product", 2, kPropagates, Product},
    {"t_quotient", 2, kPropagates, Quotient},
    {"t_whole_quotient", 2, kPropagates, Whole_Quotient},
    {"t_rest", 2, kPropagates, Rest},
    {"t_power", 2, kPropagates, Power},
    {"t_number", 1, kPropagates, To_Number},
    {"t_flag", 1, kPropagates, To_Field<FieldType::Boolean>},
    {"t_whole", 1, kPropagates, To_Field<FieldType::Long>},
    {"t_currency", 1, kPropagates, To_Field<FieldType::Currency>},
    {"t_single", 1, kPropagates, To_Field<FieldType::Single>},
    {"t_date", 1, kPropagates, To_Field<FieldType::Date>},
    {"t_serial", 1, kPropagates, To_Field<FieldType::Date>},
    {"t_whole_c", 1, kPropagates, Amount_To_Whole},
    {"t_text_c", 1, kPropagates, Amount_To_Text},
    {"t_text_d", 1, kPropagates, Real_To_Text},
    {"t_text_date", 1, kPropagates, Date_To_Text},
    {"t_int_c", 1, kPropagates, Int_Amount},
    {"t_int", 1, kPropagates, Int_Real},
    {"t_fix_c", 1, kPropagates, Fix_Amount},
    {"t_fix", 1, kPropagates, Fix_Real},
    {"t_abs_c", 1, kPropagates, Abs_Amount},
    {"t_sgn", 1, kPropagates, Sgn},
    {"t_round_c", -1, kPropagates, Round_Amount},
    {"t_round", -1, kPropagates, Round_Number},
    {"t_val", 1, kPropagates, Val_Of},
    {"t_str", 1, kPropagates, Str},
    {"t_format", 3, kSeen, Format_Value},
    {"t_chr", 1, kPropagates, Chr},
    {"t_space", 1, kPropagates, Space},
    {"t_mid", -1, kPropagates, Mid_Of},
    {"t_left", 2, kPropagates, Left_Of},
    {"t_right", 2, kPropagates, Right_Of},
    {"t_ucase", 1, kPropagates, UCase},
    {"t_lcase", 1, kPropagates, LCase},
    {"t_instr", 3, kPropagates, InStr},
    {"t_like", 2, kPropagates, Like_Pattern},
    {"t_key", -1, kSeen, Row_Key},
};

void Dispatch(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto& row = *static_cast<const CallbackRow*>(sqlite3_user_data(context));
    Call call(context, count, values);
    if (row.nulls == NullRule::Propagates) {
        for (int i = 0; i < count; ++i) {
            if (call.Is_Null(i)) return;
        }
    }
    Guarded(context, [&] { row.body(call); });
}

// SQLite turns a sum that overflows into a REAL, and whatever is added to that stays one. Called for every row of a
// calculation, and therefore without the ceremony of the others.
void Check_Amount(sqlite3_context* context, int, sqlite3_value** values) {
    switch (sqlite3_value_type(values[0])) {
        case SQLITE_INTEGER:
            return sqlite3_result_int64(context, sqlite3_value_int64(values[0]));
        case SQLITE_NULL:
            return;
        default:
            return Give_Error(context, DbErrorCode::Overflow, {});
    }
}

// Sum over Currency: exact on the way, and an error only where the total does not fit.
__extension__ typedef __int128 Wide;
struct Total {
    std::int64_t high;  // the sum in two halves: SQLite's memory is not aligned for a whole one
    std::uint64_t low;
    bool any;
    Wide Sum() const { return (Wide{high} * (Wide{1} << 64)) + low; }
};

void Sum_Step(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    auto* total = static_cast<Total*>(sqlite3_aggregate_context(context, sizeof(Total)));
    if (total == nullptr) return sqlite3_result_error_nomem(context);
    const std::int64_t amount = sqlite3_value_int64(values[0]);
    const std::uint64_t low = total->low + static_cast<std::uint64_t>(amount);
    total->high += (amount < 0 ? -1 : 0) + (low < total->low ? 1 : 0);
    total->low = low;
    total->any = true;
}

void Sum_Final(sqlite3_context* context) {
    const auto* total = static_cast<const Total*>(sqlite3_aggregate_context(context, 0));
    if (total == nullptr || !total->any) return;
    const Wide sum = total->Sum();
    if (sum > std::numeric_limits<std::int64_t>::max() || sum < std::numeric_limits<std::int64_t>::min()) {
        return Give_Error(context, DbErrorCode::Overflow, {});
    }
    sqlite3_result_int64(context, static_cast<std::int64_t>(sum));
}

}  // namespace

bool Register_Functions(sqlite3* handle) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    int result = SQLITE_OK;
    for (const CallbackRow& row : kCallbacks) {
        result |= sqlite3_create_function_v2(handle, row.name, row.arguments, kFlags, const_cast<CallbackRow*>(&row),
                                             Dispatch, nullptr, nullptr, nullptr);
    }
    result |=
        sqlite3_create_function_v2(handle, "t_amount", 1, kFlags, nullptr, Check_Amount, nullptr, nullptr, nullptr);
    result |= sqlite3_create_function_v2(handle, "t_sum", 1, kFlags, nullptr, nullptr, Sum_Step, Sum_Final, nullptr);
    return result == SQLITE_OK;
}

namespace {
constexpr char kErrorMark = '\x01';
}

std::string Encode_Error(DbErrorCode code, std::string_view argument) {
    return kErrorMark + std::to_string(static_cast<int>(code)) + kErrorMark + std::string(argument);
}

std::optional<CallbackError> Decode_Error(std::string_view text) {
    const std::size_t end = text.find(kErrorMark, 1);
    if (!text.starts_with(kErrorMark) || end == std::string_view::npos) return std::nullopt;
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data() + 1, text.data() + end, number);
    if (error != std::errc{} || stop != text.data() + end) return std::nullopt;
    return CallbackError{static_cast<DbErrorCode>(number), std::string(text.substr(end + 1))};
}

}  // namespace tallmar::db_detail
