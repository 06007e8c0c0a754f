#pragma once

#include <string>
#include <string_view>

namespace VdCommon
{

// Turns the escaped form of a log field into plain text: "%%" stands for "%", and "%I" for the separator "|".
// Holds no state between calls; making one costs nothing.
class DelimiterChanger
{
public:
    virtual ~DelimiterChanger() = default;

    // Returns 0 with the plain text in `out`, or -1 for an empty text with `out` as it was. `text` must not lie in
    // `out`. A broken escape, "%" before any other character, gets the replacement of the last good escape of the text
    // and skips as many characters as that has: nothing and none at first, then one. A "%" at the very end is dropped.
    int Decode(std::wstring& out, std::wstring_view text) const;

private:
    std::string_view m_strEscape = "%";
    std::wstring_view m_strEscapeW = L"%";
    std::string_view m_strSeparator = "|";
    std::wstring_view m_strSeparatorW = L"|";
};

} // namespace VdCommon
