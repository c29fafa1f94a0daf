// The reports opened last, newest first, kept in the settings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallmar {

inline constexpr std::size_t kRecentFiles = 8;

std::vector<std::string> Recent_Files();
// To the front; the oldest beyond eight goes.
void Add_Recent_File(const std::string& path);
void Remove_Recent_File(std::string_view path);

}  // namespace tallmar
