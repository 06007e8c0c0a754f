#include "framework/ui/kestrix/logs/LogRec.h"

#include <stdexcept>

std::wstring_view LogRec::Field(std::size_t index) const
{
    if (index >= strData.size())
    {
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return strData[index];
}

void LogRec::AppendJoined(std::wstring_view first, std::wstring_view second)
{
    strData.push_back(m_pMemory != nullptr ? m_pMemory->KeepJoined(first, second)
                                           : Keep(std::wstring(first).append(second)));
}
