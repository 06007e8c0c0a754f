#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace EventLog
{

// What a token may be; suite/lines.py tells the rules.
enum class Rule
{
    Any,
    Minutes,
    Seconds,
    Number,
    Source,
    Hexadecimal,
};

struct TokenForm
{
    std::wstring_view name; // for messages; empty when no log looks at the token
    Rule rule;
    std::int64_t least; // of a number
    std::int64_t most;
    bool mayBeEmpty; // in spite of its rule
    bool mayLack;    // a line of a daily file may end before it; such a line gets it in the database, empty
};

// How the lines look whose source, their third token, is in the range. They may have more tokens.
struct LineForm
{
    std::uint32_t firstSource;
    std::uint32_t lastSource;
    std::span<const TokenForm> tokens;
};

// What the suite knows of a kind of log: how it is named in file names, in queries and in orders to purge it, and how
// its lines look. Each is a row of suite/kinds.tsv, its forms those of suite/lines.tsv.
struct LogKind
{
    std::wstring_view extension;     // of its daily files
    std::uint32_t subType;           // its number in queries and in the database
    std::uint32_t purgeType;         // its number in an order to purge, the log's command code
    std::uint32_t timeToken;         // the token of its lines that holds the time
    std::span<const LineForm> forms; // of its lines; the first that fits counts
    std::string_view title;          // in English, as the help has it
};

std::span<const LogKind> AllLogKinds();

// The kind with this extension in upper case, purge type or sub type; null when there is none.
const LogKind* FindKindOfExtension(std::wstring_view extension);
const LogKind* FindKindOfPurgeType(std::uint32_t purgeType);
const LogKind* FindKindOfSubType(std::uint32_t subType);

} // namespace EventLog
