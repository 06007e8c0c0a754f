#include "platform/dialog/DialogTemplate.h"

#include "platform/dialog/ModuleState.h"

#include <cstring>

namespace
{

// The first words of a template of the extended form, where the plain form has its style.
constexpr DWORD ExtendedMark = 0xFFFF0001;
constexpr std::size_t PlainStyle = 0;
constexpr std::size_t ExtendedStyle = 3; // after the mark, the help number and the extended style

} // namespace

DialogTemplate::DialogTemplate(UINT id)
{
    const std::span<const std::byte> bytes = GetResourceBytes(id, RT_DIALOG);
    if (!bytes.empty())
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
