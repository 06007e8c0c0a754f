#include "framework/ui/kestrix/logs/CodeTexts.h"

#include "platform/dialog/ResourceText.h"

namespace
{

// Null for a code that is not there. Many tables begin with the codes 0, 1, 2 and so on, whose place is their number.
const CodeText* FindCode(std::span<const CodeText> table, std::uint32_t code)
{
    if (code < table.size() && table[code].code == code)
    {
        return &table[code];
    }
    const auto row = std::ranges::lower_bound(table, code, {}, &CodeText::code);
    return row != table.end() && row->code == code ? &*row : nullptr;
}

} // namespace

std::wstring_view TextOfCode(std::span<const CodeText> table, std::uint32_t code, UINT other)
{
    const CodeText* const row = FindCode(table, code);
    const UINT text = row == nullptr ? other : row->text;
    return text == 0 ? std::wstring_view() : std::wstring_view(LoadText(text));
}

bool AppendTextOfCode(std::span<const CodeText> table, std::uint32_t code, LogRec& record)
{
    const CodeText* const row = FindCode(table, code);
    if (row != nullptr)
    {
        record.AppendLasting(LoadText(row->text));
    }
    return row != nullptr;
}
