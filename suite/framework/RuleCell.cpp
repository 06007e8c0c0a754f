#include "suite/framework/RuleCell.h"

#include "suite/framework/RuleWords.h"
#include "suite/framework/Utf8.h"

#include <algorithm>
#include <concepts>
#include <cwctype>
#include <iterator>
#include <limits>

namespace Framework
{

namespace
{

constexpr std::size_t MostDigits = 10; // of a number of 32 bits

struct CellWriter
{
    std::wstring operator()(bool value) const { return value ? L"1" : L"0"; }

    template <std::unsigned_integral Number>
    std::wstring operator()(Number number) const
    {
        const auto name = std::ranges::find(names, std::uint32_t{number}, &NumberName::number);
        return name == names.end() ? std::to_wstring(number) : std::wstring(name->name);
    }

    std::wstring operator()(const std::wstring& text) const { return WordOf(text); }

    std::wstring operator()(const List& bytes) const
    {
        std::wstring digits;
        for (const Value& value : bytes)
        {
            const std::uint8_t byte = std::get<std::uint8_t>(value);
            digits += HexDigits[byte >> 4];
            digits += HexDigits[byte & 0xF];
        }
        return digits;
    }

    NumberNames names;
};

bool IsSame(std::wstring_view one, std::wstring_view other)
{
    return std::ranges::equal(one, other, {}, std::towlower, std::towlower);
}

template <class Number>
std::optional<Value> ReadNumber(const std::wstring& word, NumberNames names)
{
    const auto name = std::ranges::find_if(names, [&](const NumberName& row) { return IsSame(row.name, word); });
    if (name != names.end())
    {
        return Value(static_cast<Number>(name->number));
    }
    if (word.empty() || word.size() > MostDigits || word.find_first_not_of(L"0123456789") != word.npos)
    {
        return std::nullopt;
    }
    const std::uint64_t number = std::stoull(word);
    return number <= std::numeric_limits<Number>::max() ? std::optional<Value>(static_cast<Number>(number))
                                                        : std::nullopt;
}

std::optional<Value> ReadText(const std::wstring& word, NumberNames)
{
    return Value(word);
}

template <std::size_t Count>
std::optional<Value> ReadBytes(const std::wstring& word, NumberNames)
{
    if (word.size() != 2 * Count || word.find_first_not_of(HexDigits) != word.npos)
    {
        return std::nullopt;
    }
    List bytes;
    for (std::size_t i = 0; i < word.size(); i += 2)
    {
        bytes.emplace_back(static_cast<std::uint8_t>(std::stoul(word.substr(i, 2), nullptr, 16)));
    }
    return Value(std::move(bytes));
}

struct Form
{
    Element element;
    std::string_view allowed;
    std::optional<Value> (*read)(const std::wstring& word, NumberNames names);
};

constexpr Form Forms[] = {
    {Element::Bool, "0 or 1", &ReadNumber<bool>},
    {Element::Word, "a number up to 65535", &ReadNumber<std::uint16_t>},
    {Element::Number, "a number up to 4294967295", &ReadNumber<std::uint32_t>},
    {Element::Text, "a text", &ReadText},
    {Element::Bytes16, "32 hexadecimal digits", &ReadBytes<16>},
    {Element::Bytes20, "40 hexadecimal digits", &ReadBytes<20>},
};

const Form& FormOf(Element element)
{
    return *std::ranges::find(Forms, element, &Form::element);
}

} // namespace

std::wstring CellOf(const Value& value, NumberNames names)
{
    return std::visit(CellWriter{names}, static_cast<const ValueAlternatives&>(value));
}

std::optional<Value> ReadCell(const std::wstring& word, Element element, NumberNames names)
{
    return FormOf(element).read(word, names);
}

std::string AllowedInCell(Element element, NumberNames names)
{
    std::string allowed;
    for (const NumberName& row : names)
    {
        allowed += Narrow(row.name) + (&row == &names.back() ? " or " : ", ");
    }
    return allowed += FormOf(element).allowed;
}

} // namespace Framework
