#include "common/text_input.h"

namespace tallmar {

TextStart Pass_Byte_Order_Mark(std::istream& in) {
    const int first = in.peek();
    if (first == 0xFF || first == 0xFE) {
        in.get();
        if (in.peek() == (first == 0xFF ? 0xFE : 0xFF)) return TextStart::Utf16;
        in.unget();
        return TextStart::Text;
    }
    for (const int byte : {0xEF, 0xBB, 0xBF}) {
        if (in.peek() != byte) break;
        in.get();
    }
    return TextStart::Text;
}

}  // namespace tallmar
