#include "common/VdCommon/VdComn_DelimiterChanger.h"

namespace VdCommon
{

namespace
{

// What stands after the escape mark for the separator; the mark itself is doubled.
constexpr wchar_t SeparatorCode = L'I';

} // namespace

int DelimiterChanger::Decode(std::wstring& out, std::wstring_view text) const
{
    if (text.empty())
    {
        return -1;
    }
    const wchar_t mark = m_strEscapeW.front();
    std::wstring_view replacement; // outlives an escape: broken fields depend on it
    out.clear();
    out.reserve(text.size());
    for (std::size_t escape = text.find(mark); escape != text.npos; escape = text.find(mark))
    {
        out.append(text.substr(0, escape));
        text.remove_prefix(escape + m_strEscapeW.size());
        if (text.empty())
        {
            break;
        }
        if (text.front() == mark)
        {
            replacement = m_strEscapeW;
        }
        else if (text.front() == SeparatorCode)
        {
            replacement = m_strSeparatorW;
        }
        out.append(replacement);
        text.remove_prefix(replacement.size());
    }
    out.append(text);
    return 0;
}

} // namespace VdCommon
