#pragma once

#include <cstdint>
#include <memory>

class CZPTLogBase;

// How the page shows the first row of the detail pane for a log type.
enum class FirstInfoRow
{
    Link,     // as a link
    Text,     // as plain text
    TextOnly, // as plain text, the link disabled
    TallText, // as plain text of three rows
};

// What the page has to know about a log type that has a class.
struct LogClass
{
    std::uint32_t type;
    FirstInfoRow firstRow;
    std::unique_ptr<CZPTLogBase> (*create)();
};

// The class of a log type; null for a type that has none.
const LogClass* FindLogClass(std::uint32_t type) noexcept;
