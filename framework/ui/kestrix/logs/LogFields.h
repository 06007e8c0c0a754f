#pragma once

#include <string>
#include <string_view>

// The hours and minutes of a time token, which is digits without separators: "103015" gives "10:30". What a shorter
// token lacks is left out.
std::wstring ClockText(std::wstring_view token);
