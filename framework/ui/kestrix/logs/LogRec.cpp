#include "framework/ui/kestrix/logs/LogRec.h"

#include <algorithm>
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
    std::pmr::polymorphic_allocator<wchar_t> memory = strData.get_allocator();
    const std::size_t size = first.size() + second.size();
    wchar_t* const copy = memory.allocate(size);
    std::ranges::copy(second, std::ranges::copy(first, copy).out);
    strData.emplace_back(copy, size);
}

std::wstring_view LogRec::Keep(std::wstring_view text) const
{
    if (text.empty())
    {
        return {};
    }
    std::pmr::polymorphic_allocator<wchar_t> memory = strData.get_allocator();
    wchar_t* const copy = memory.allocate(text.size());
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}
