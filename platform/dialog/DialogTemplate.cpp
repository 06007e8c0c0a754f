#include "platform/dialog/DialogTemplate.h"

#include "platform/dialog/ModuleState.h"

#include <cstring>

namespace
{

// The first words of a template of the extended form, where the plain form has its style.
constexpr DWORD ExtendedMark = 0xFFFF0001;
constexpr std::size_t PlainStyle = 0;
constexpr std::size_t ExtendedStyle = 3; // after the mark, the help number and the extended style

// Goes through a template as the system does, which trusts it. Each operation returns false at the end of the bytes.
class TemplateWalk
{
public:
    explicit TemplateWalk(std::span<const std::byte> bytes) : m_rest(bytes), m_nSize(bytes.size()) {}

    bool IsWhole()
    {
        DWORD first = 0;
        Peek(first);
        m_bExtended = first == ExtendedMark;
        DWORD style = first;
        WORD controls = 0;
        constexpr std::size_t place = 4 * sizeof(WORD); // and size
        const bool hasHead =
            (m_bExtended ? Skip(ExtendedStyle * sizeof(DWORD)) && Take(style) : Skip(2 * sizeof(DWORD))) &&
            Take(controls) && Skip(place) && SkipName() && SkipName() && SkipText() &&
            ((style & DS_SETFONT) == 0 || SkipFont());
        bool isWhole = hasHead;
        for (; isWhole && controls > 0; --controls)
        {
            isWhole = SkipControl();
        }
        return isWhole;
    }

private:
    template <class Number>
    bool Peek(Number& number) const
    {
        const bool isThere = m_rest.size() >= sizeof number;
        if (isThere)
        {
            std::memcpy(&number, m_rest.data(), sizeof number);
        }
        return isThere;
    }

    template <class Number>
    bool Take(Number& number)
    {
        return Peek(number) && Skip(sizeof number);
    }

    bool Skip(std::size_t bytes)
    {
        const bool isThere = m_rest.size() >= bytes;
        m_rest = m_rest.subspan(isThere ? bytes : m_rest.size());
        return isThere;
    }

    // With its terminator.
    bool SkipText()
    {
        WORD unit = 0;
        while (Take(unit))
        {
            if (unit == 0)
            {
                return true;
            }
        }
        return false;
    }

    // A text, or a mark and a number.
    bool SkipName()
    {
        constexpr WORD numberMark = 0xFFFF;
        WORD unit = 0;
        return Peek(unit) && (unit == numberMark ? Skip(2 * sizeof(WORD)) : SkipText());
    }

    bool SkipFont()
    {
        constexpr WORD fontOfMessages = 0x7FFF; // in the place of a size, and alone
        WORD size = 0;
        return Take(size) && (size == fontOfMessages || (Skip(m_bExtended ? 2 * sizeof(WORD) : 0) && SkipText()));
    }

    // Style, extended style, help number or none, place and size, number, class, text and data.
    bool SkipControl()
    {
        const std::size_t begin = m_nSize - m_rest.size();
        WORD data = 0;
        return Skip((sizeof(DWORD) - begin % sizeof(DWORD)) % sizeof(DWORD)) &&
               Skip(m_bExtended ? 4 * sizeof(DWORD) + 4 * sizeof(WORD) : 2 * sizeof(DWORD) + 5 * sizeof(WORD)) &&
               SkipName() && SkipName() && Take(data) && Skip(data);
    }

    std::span<const std::byte> m_rest;
    const std::size_t m_nSize;
    bool m_bExtended = false;
};

} // namespace

DialogTemplate::DialogTemplate(UINT id)
{
    const std::span<const std::byte> bytes = GetResourceBytes(id, RT_DIALOG);
    if (TemplateWalk(bytes).IsWhole())
    {
        m_data.resize((bytes.size() + sizeof(DWORD) - 1) / sizeof(DWORD));
        std::memcpy(m_data.data(), bytes.data(), bytes.size());
    }
}

void DialogTemplate::RemoveVisibleStyle()
{
    const std::size_t style = m_data.at(0) == ExtendedMark ? ExtendedStyle : PlainStyle;
    m_data.at(style) &= ~static_cast<DWORD>(WS_VISIBLE);
}
