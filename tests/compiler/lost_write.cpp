// Shows whether the compiler keeps a write to a member that a call hides: `mark_ = next_`. GCC 12.2 loses it at -O1 and
// above through its analysis of what a call changes (-fipa-modref): "ORDER BY 7 ORDER BY last" comes out. The program
// is well defined; the sanitizers and other compilers agree. Statements of the dialect are written by such lists, so
// the build turns the analysis off, and this program is built with the same options at each level of optimization.
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Writer {
    std::string text;
    Writer& operator<<(std::string_view piece) {
        text += piece;
        return *this;
    }
    void Term(int value) { text += std::to_string(value); }
};

class Between {
  public:
    Between(Writer& writer, std::string_view first, std::string_view next)
        : writer_(writer), mark_(first), next_(next) {}
    Writer& operator()() {
        writer_ << mark_;
        mark_ = next_;
        return writer_;
    }

  private:
    Writer& writer_;
    std::string_view mark_, next_;
};

void Write_Terms(Between& comma, const std::vector<int>& terms) {
    for (const int term : terms) {
        Writer& writer = comma();
        writer.Term(term);
        if (term < 0) writer << " DESC";
    }
}

void Write_Order(Writer& writer, const std::vector<int>& terms) {
    Between comma(writer, " ORDER BY ", ",");
    Write_Terms(comma, terms);
    comma() << "last";
}

}  // namespace

// The number of arguments, 1, is what the compiler cannot know.
int main(int count, char**) {
    const std::vector<int> terms(static_cast<std::size_t>(count), 7);
    Writer order;
    Write_Order(order, terms);
    return order.text == " ORDER BY 7,last" ? 0 : 1;
}
