#include "suite/framework/RuleWords.h"

#include <algorithm>
#include <span>

namespace Framework
{

namespace
{

constexpr std::wstring_view Blanks = L" \t";
constexpr std::wstring_view EmptyText = L"-";
constexpr wchar_t Quote = L'"';
constexpr wchar_t Escape = L'%';
constexpr std::size_t EscapeDigits = 4;

struct Range
{
    wchar_t first, last;
};

// Controls, what has no width or turns the direction of a line, and what is no character.
constexpr Range Unseen[] = {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x200B, 0x200F}, {0x2028, 0x202E},
                            {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFF}};

// Letters that take two places on a terminal: those of East Asia, and the first halves of nearly all pairs.
constexpr Range Wide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3}, {0xD800, 0xDBFF},
                          {0xF900, 0xFAFF}, {0xFE30, 0xFE4F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}};

bool IsIn(std::span<const Range> ranges, wchar_t unit)
{
    return std::ranges::any_of(ranges,
                               [unit](const Range& range) { return range.first <= unit && unit <= range.last; });
}

bool IsHigh(wchar_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}

bool IsLow(wchar_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}

// Whether the unit at the place is a surrogate without its other half.
bool IsHalf(std::wstring_view text, std::size_t place)
{
    const bool hasLow = place + 1 < text.size() && IsLow(text[place + 1]);
    const bool hasHigh = place > 0 && IsHigh(text[place - 1]);
    return (IsHigh(text[place]) && !hasLow) || (IsLow(text[place]) && !hasHigh);
}

std::wstring Escaped(wchar_t unit)
{
    std::wstring word(1, Escape);
    for (int shift = 12; shift >= 0; shift -= 4)
    {
        word += HexDigits[(unit >> shift) & 0xF];
    }
    return word;
}

class WordReader
{
public:
    explicit WordReader(std::wstring_view line) : m_rest(line) {}

    std::vector<std::wstring> Words()
    {
        std::vector<std::wstring> words;
        for (SkipBlanks(); !m_rest.empty(); SkipBlanks())
        {
            words.push_back(m_rest.front() == Quote ? TakeQuoted() : TakePlain());
        }
        return words;
    }

private:
    void SkipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(Blanks), m_rest.size())); }

    bool IsAtEnd() const { return m_rest.empty() || Blanks.find(m_rest.front()) != Blanks.npos; }

    wchar_t Take()
    {
        const wchar_t unit = m_rest.front();
        m_rest.remove_prefix(1);
        return unit;
    }

    std::wstring TakePlain()
    {
        if (m_rest.substr(0, m_rest.find_first_of(Blanks)) == EmptyText)
        {
            Take();
            return {};
        }
        std::wstring text;
        while (!IsAtEnd())
        {
            text += TakeUnit();
        }
        return text;
    }

    std::wstring TakeQuoted()
    {
        Take();
        std::wstring text;
        while (!IsQuoteClosed())
        {
            text += TakeUnit();
        }
        if (!IsAtEnd())
        {
            throw BadLine("a blank is missing after the quote that ends a text");
        }
        return text;
    }

    // Takes the quote that closes, or the first of two that stand for one.
    bool IsQuoteClosed()
    {
        if (m_rest.empty())
        {
            throw BadLine("the quote that ends a text is missing");
        }
        if (m_rest.front() != Quote)
        {
            return false;
        }
        Take();
        return m_rest.empty() || m_rest.front() != Quote;
    }

    wchar_t TakeUnit()
    {
        const wchar_t unit = Take();
        if (unit == L'\0')
        {
            throw BadLine("a text cannot hold the character NUL");
        }
        return unit == Escape ? TakeEscaped() : unit;
    }

    wchar_t TakeEscaped()
    {
        if (m_rest.starts_with(Escape))
        {
            return Take();
        }
        const std::wstring digits(m_rest.substr(0, EscapeDigits));
        if (digits.size() < EscapeDigits || digits == L"0000" || digits.find_first_not_of(HexDigits) != digits.npos)
        {
            throw BadLine("% must be followed by a second one, or by four hexadecimal digits that are not 0000");
        }
        m_rest.remove_prefix(EscapeDigits);
        return static_cast<wchar_t>(std::stoul(digits, nullptr, 16));
    }

    std::wstring_view m_rest;
};

} // namespace

std::vector<std::wstring> SplitWords(std::wstring_view line)
{
    return WordReader(line).Words();
}

std::wstring WordOf(std::wstring_view text)
{
    if (text.empty())
    {
        return std::wstring(EmptyText);
    }
    std::wstring word;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const wchar_t unit = text[i];
        word += IsIn(Unseen, unit) || IsHalf(text, i) ? Escaped(unit) : std::wstring(1 + (unit == Escape), unit);
    }
    const bool needsQuotes = text == EmptyText || text.find_first_of(L"\" ") != text.npos;
    if (!needsQuotes)
    {
        return word;
    }
    for (std::size_t i = word.find(Quote); i != word.npos; i = word.find(Quote, i + 2))
    {
        word.insert(i, 1, Quote);
    }
    return Quote + word + Quote;
}

std::size_t WidthOf(std::wstring_view word)
{
    std::size_t width = 0;
    for (const wchar_t unit : word)
    {
        width += IsLow(unit) ? 0 : IsIn(Wide, unit) ? 2 : 1;
    }
    return width;
}

} // namespace Framework
