#include "cli/refusals.h"

#include <iterator>
#include <utility>

#include "cli/console_platform.h"

namespace tallmar {

void Refusals::Add(long line, std::string reason) {
    if (told_.size() == kMostTold) {
        ++more_;
        const auto last = std::prev(told_.end());
        if (line >= last->first) return;
        told_.erase(last);
    }
    told_.emplace(line, std::move(reason));
}

void Refusals::Print(std::ostream& err) const {
    // Standard error writes at every <<.
    std::string text;
    for (const auto& [line, reason] : told_) text += "line " + std::to_string(line) + ": " + One_Line(reason) + "\n";
    if (more_ > 0) text += std::to_string(more_) + (more_ == 1 ? " more was" : " more were") + " refused.\n";
    err << text << std::flush;
}

}  // namespace tallmar
