// The beginning of a text that a person hands in.
#pragma once

#include <istream>
#include <string_view>

namespace tallmar {

enum class TextStart { Text, Utf16 };

// Passes the byte order mark of UTF-8 over, where there is one. Utf16: the mark of that encoding, which is not read.
TextStart Pass_Byte_Order_Mark(std::istream& in);

inline constexpr std::string_view kUtf16Trouble = "The text is UTF-16.  Save it as UTF-8 and try again.";

}  // namespace tallmar
