#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Plain
{

// Takes the lines of the text of a daily file one by one, as a program reads them that takes one terminated text of at
// most 2,046 characters after the other. A text that does not end in a line feed belongs to a line that is too long or
// has no end, and so does the next one that ends in one.
template <class Take>
void ForEachLine(std::wstring_view text, Take take)
{
    constexpr std::size_t most = 2046;
    bool begins = true;
    for (std::wstring line; !text.empty();)
    {
        const std::size_t feed = text.substr(0, most).find(L'\n');
        const std::wstring_view part = text.substr(0, feed == text.npos ? most : feed + 1);
        line = part.substr(0, part.find(L'\0'));
        text.remove_prefix(part.size());
        if (line.empty())
        {
            continue;
        }
        if (line.back() != L'\n')
        {
            begins = false;
        }
        else if (!begins)
        {
            begins = true;
        }
        else if (line.resize(std::min(line.size(), line.rfind(L'\r'))); !line.empty())
        {
            take(line);
        }
    }
}

inline std::vector<std::wstring> Lines(std::wstring_view text)
{
    std::vector<std::wstring> lines;
    ForEachLine(text, [&](const std::wstring& line) { lines.push_back(line); });
    return lines;
}

} // namespace Plain
