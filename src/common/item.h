// A worksheet's key, which is also the name of its table: "A", "B1", "A83p1P", "Cp2c12345", "K4p2h0".
#pragma once

#include <string>
#include <string_view>

namespace tallmar {

class Item {
  public:
    Item(std::string name) : name_(std::move(name)) {}
    Item(const char* name) : name_(name) {}

    const std::string& Name() const { return name_; }
    // The text from `position` (from 1) on: the code of Cp2c12345 is Rest(5).
    std::string Rest(std::size_t position) const { return position > name_.size() ? "" : name_.substr(position - 1); }
    friend bool operator==(const Item&, const Item&) = default;

  private:
    std::string name_;
};

// A family's members: "A" itself; "A83p1?" one more character; "Cp2*" any rest; "Kh#" one more digit.
class ItemPattern {
  public:
    constexpr ItemPattern(const char* pattern) : pattern_(pattern) {}
    constexpr std::string_view Text() const { return pattern_; }
    constexpr bool Matches(std::string_view item) const {
        std::size_t i = 0;
        for (; i < pattern_.size(); ++i) {
            if (pattern_[i] == '*') return true;
            if (i >= item.size()) return false;
            if (pattern_[i] == '#') {
                if (item[i] < '0' || item[i] > '9') return false;
            } else if (pattern_[i] != '?' && pattern_[i] != item[i]) {
                return false;
            }
        }
        return i == item.size();
    }

  private:
    std::string_view pattern_;
};

}  // namespace tallmar
