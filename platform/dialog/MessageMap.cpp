#include "platform/dialog/MessageMap.h"

#include <algorithm>

const MessageRow* MessageMap::Find(RowKind kind, UINT code, UINT id) const
{
    const MessageMap* map = this;
    while (map != nullptr)
    {
        const MessageRow* const end = map->m_pRows + map->m_nCount;
        const auto answers = [=](const MessageRow& row) { return row.Answers(kind, code, id); };
        if (const MessageRow* const row = std::find_if(map->m_pRows, end, answers); row != end)
        {
            return row;
        }
        map = map->m_pfnBase != nullptr ? &map->m_pfnBase() : nullptr;
    }
    return nullptr;
}
