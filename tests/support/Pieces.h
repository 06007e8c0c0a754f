#pragma once

#include <algorithm>
#include <ranges>
#include <string>
#include <string_view>
#include <vector>

// The parts of a text between separators, of which there is one at least.
template <class Unit>
std::vector<std::basic_string<Unit>> Pieces(std::basic_string_view<Unit> text, Unit separator)
{
    std::vector<std::basic_string<Unit>> pieces;
    for (const auto piece : std::views::split(text, separator))
    {
        pieces.emplace_back(piece.begin(), piece.end());
    }
    pieces.resize(std::max<std::size_t>(pieces.size(), 1));
    return pieces;
}
