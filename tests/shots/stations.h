// The stations of the tour, as a table.
#pragma once

#include <span>
#include <string_view>

#include "shots/desk.h"

namespace tallmar {

struct Station {
    std::string_view file;  // of the picture, without its extension
    std::string_view text;  // its line in the index
    void (*go)(Desk& desk, const Station& station);
    // After the picture: answers what `go` opened. Runs while `go` still stands in a box.
    void (*leave)(Desk& desk) = nullptr;
    std::string_view item = {};
    // Before the picture: works in what `go` opened and stands in.
    void (*inside)(Desk& desk) = nullptr;
};

std::span<const Station> Stations();

}  // namespace tallmar
