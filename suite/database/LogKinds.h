#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace EventLog
{

// The number of tokens that a complete line of a daily file has when the source of its record is in the range; the
// database form has one more.
struct FileForm
{
    std::uint32_t firstSource;
    std::uint32_t lastSource;
    std::ptrdiff_t tokens;
};

// What the suite knows of a kind of log: how it is named in file names, in queries and in orders to purge it, and how
// its lines look. Each is a row of suite/kinds.tsv.
struct LogKind
{
    std::wstring_view extension;         // of its daily files
    std::uint32_t subType;               // its number in queries and in the database
    std::uint32_t purgeType;             // its number in an order to purge, the log's command code
    std::uint32_t timeToken;             // the token of its lines that holds the time
    std::span<const FileForm> fileForms; // the first that fits counts; none when both forms are the same
    std::string_view title;              // in English, as the help has it
};

std::span<const LogKind> AllLogKinds();

// The kind with this extension in upper case, purge type or sub type; null when there is none.
const LogKind* FindKindOfExtension(std::wstring_view extension);
const LogKind* FindKindOfPurgeType(std::uint32_t purgeType);
const LogKind* FindKindOfSubType(std::uint32_t subType);

} // namespace EventLog
