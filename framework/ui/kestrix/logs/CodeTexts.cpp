#include "framework/ui/kestrix/logs/CodeTexts.h"

#include "platform/dialog/ModuleState.h"

std::wstring_view TextOfCode(std::span<const CodeText> table, std::uint32_t code, UINT other)
{
    const auto row = std::ranges::lower_bound(table, code, {}, &CodeText::code);
    const UINT text = row != table.end() && row->code == code ? row->text : other;
    return text == 0 ? std::wstring_view() : std::wstring_view(LoadText(text));
}
