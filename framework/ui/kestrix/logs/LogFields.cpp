#include "framework/ui/kestrix/logs/LogFields.h"

#include <memory>

void LogFields::reserve(std::size_t room)
{
    if (room <= m_nRoom)
    {
        return;
    }
    std::wstring_view* const fields = std::pmr::polymorphic_allocator<std::wstring_view>(m_pMemory).allocate(room);
    std::uninitialized_copy(begin(), end(), fields);
    m_pFields = fields;
    m_nRoom = static_cast<std::uint32_t>(room);
}

void LogFields::resize(std::size_t size)
{
    reserve(size);
    if (size > m_nSize)
    {
        std::uninitialized_fill(m_pFields + m_nSize, m_pFields + size, std::wstring_view());
    }
    m_nSize = static_cast<std::uint32_t>(size);
}
