#pragma once

#include <string>
#include <string_view>
#include <type_traits>

namespace VdCommon
{

// An argument of a trace call as a variable argument list takes it: texts as terminated pointers, the rest as it is.
// What Value returns lives as long as the object.
template <class T>
struct TraceArgument
{
    explicit TraceArgument(const T& argument) noexcept : m_argument(argument) {}

    std::decay_t<const T> Value() const noexcept
    {
        static_assert(std::is_scalar_v<std::decay_t<T>>, "a trace line takes numbers, pointers and wide texts");
        return m_argument;
    }

private:
    const T& m_argument;
};

template <>
struct TraceArgument<std::wstring>
{
    explicit TraceArgument(const std::wstring& text) noexcept : m_pText(text.c_str()) {}

    const wchar_t* Value() const noexcept { return m_pText; }

private:
    const wchar_t* m_pText;
};

template <>
struct TraceArgument<std::wstring_view>
{
    explicit TraceArgument(std::wstring_view text) : m_strText(text) {}

    const wchar_t* Value() const noexcept { return m_strText.c_str(); }

private:
    std::wstring m_strText; // a view has no terminator
};

} // namespace VdCommon
