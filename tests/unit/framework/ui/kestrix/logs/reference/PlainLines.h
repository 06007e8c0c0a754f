#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Plain
{

// The lines of the text of a daily file, as a program reads them that takes one terminated text of at most 2,046
// characters after the other. A text that does not end in a line feed belongs to a line that is too long or has no end,
// and so does the next one that ends in one.
inline std::vector<std::wstring> Lines(std::wstring_view text)
{
    constexpr std::size_t most = 2046;
    std::vector<std::wstring> lines;
    bool begins = true;
    while (!text.empty())
    {
        const std::size_t feed = text.substr(0, most).find(L'\n');
        const std::size_t length = feed == text.npos ? std::min(most, text.size()) : feed + 1;
        std::wstring line(text.substr(0, length).substr(0, text.substr(0, length).find(L'\0')));
        text.remove_prefix(length);
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
            lines.push_back(line);
        }
    }
    return lines;
}

} // namespace Plain
