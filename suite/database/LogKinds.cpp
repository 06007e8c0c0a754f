#include "suite/database/LogKinds.h"

#include <algorithm>

namespace EventLog
{

namespace
{

template <class Member, class Value>
const LogKind* Find(Member member, const Value& value)
{
    const std::span<const LogKind> kinds = AllLogKinds();
    const auto found = std::ranges::find(kinds, value, member);
    return found == kinds.end() ? nullptr : &*found;
}

} // namespace

const LogKind* FindKindOfExtension(std::wstring_view extension)
{
    return Find(&LogKind::extension, extension);
}

const LogKind* FindKindOfPurgeType(std::uint32_t purgeType)
{
    return Find(&LogKind::purgeType, purgeType);
}

const LogKind* FindKindOfSubType(std::uint32_t subType)
{
    return Find(&LogKind::subType, subType);
}

} // namespace EventLog
