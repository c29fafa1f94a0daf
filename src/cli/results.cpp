#include "cli/results.h"

namespace tallmar {

void HeldText::Write_Out() {
    out_ << held_ << std::flush;
    held_.clear();
    if (!out_) throw ResultsNotWritten();
}

HeldText::int_type HeldText::overflow(int_type c) {
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        const char byte = traits_type::to_char_type(c);
        xsputn(&byte, 1);
    }
    return traits_type::not_eof(c);
}

std::streamsize HeldText::xsputn(const char* text, std::streamsize size) {
    held_.append(text, static_cast<std::size_t>(size));
    if (held_.size() > Results::kMostHeld) Write_Out();
    return size;
}

Results::Results(std::ostream& target) : std::ostream(nullptr), held_(target) {
    rdbuf(&held_);
    exceptions(std::ios::badbit);
}

}  // namespace tallmar
