// The lines of a list that were refused.
#pragma once

#include <cstddef>
#include <map>
#include <ostream>
#include <string>

namespace tallmar {

// Keeps the reasons of the first kMostTold lines and counts the others: a file of another kind is refused line by line,
// and nobody reads a million refusals.
class Refusals {
  public:
    static constexpr std::size_t kMostTold = 1000;

    void Add(long line, std::string reason);
    bool Empty() const { return told_.empty(); }
    // "line 7: reason", in the order of the lines, then how many more there are.
    void Print(std::ostream& err) const;

  private:
    std::multimap<long, std::string> told_;
    std::size_t more_ = 0;
};

}  // namespace tallmar
