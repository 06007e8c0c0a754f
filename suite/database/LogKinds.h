#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace EventLog
{

// What the suite knows of a log kind: how it is named in file names, in queries and in orders to purge it.
struct LogKind
{
    std::wstring_view extension; // of its daily files
    std::uint32_t subType;       // its number in queries and in the database
    std::uint32_t purgeType;     // its number in an order to purge, the log's command code
    std::uint32_t timeToken;     // the token of its lines that holds the time
};

// All thirteen kinds.
std::span<const LogKind> AllLogKinds();

// The kind with this extension in upper case, purge type or sub type; null when there is none.
const LogKind* FindKindOfExtension(std::wstring_view extension);
const LogKind* FindKindOfPurgeType(std::uint32_t purgeType);
const LogKind* FindKindOfSubType(std::uint32_t subType);

} // namespace EventLog
