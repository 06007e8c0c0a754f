#include "suite/database/LogKinds.h"

#include <algorithm>

namespace EventLog
{

namespace
{

constexpr LogKind Kinds[] = {
    {L"VLG", 2, 1, 1},   {L"UPG", 11, 0, 1},  {L"UFG", 5, 4, 1},   {L"PFG", 6, 3, 0}, {L"PTG", 7, 2, 1},
    {L"PPG", 9, 5, 1},   {L"HLG", 4, 10, 1},  {L"VAG", 8, 7, 1},   {L"SPG", 3, 8, 1}, {L"SCG", 10, 11, 1},
    {L"STC", 13, 12, 1}, {L"SCI", 12, 13, 1}, {L"SKP", 14, 14, 1},
};

template <class Member, class Value>
const LogKind* Find(Member member, const Value& value)
{
    const LogKind* const found = std::ranges::find(Kinds, value, member);
    return found == std::end(Kinds) ? nullptr : found;
}

} // namespace

std::span<const LogKind> AllLogKinds()
{
    return Kinds;
}

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
