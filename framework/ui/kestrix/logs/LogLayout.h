#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// Fields of a record are numbered in the order in which the log class appends them.
inline constexpr std::size_t NoField = static_cast<std::size_t>(-1);
inline constexpr std::size_t LastField = static_cast<std::size_t>(-2); // of a record, however many it has

// A column of the record list. A class whose column shows no single field overrides GetColumnText for it.
struct LogColumn
{
    UINT title;          // text
    std::uint32_t width; // pixels at 96 dots an inch
    std::size_t field;   // what it shows
    std::size_t order;   // the field that it is sorted by, see ColumnOrder.h
};

// How a row of the detail pane shows its field.
enum class InfoText
{
    Whole,
    Cut,    // a long text is cut, and the tool tip has all of it
    Threat, // the name of a threat: a link, or a text when the name says that it is not known
    Link,   // a link in any case; for the first row
};

// A row of the detail pane. One that says nothing is hidden.
struct LogInfoRow
{
    UINT caption = 0; // text; 0: none
    bool visible = false;
    std::size_t field = NoField; // NoField: the row stays as it is
    InfoText how = InfoText::Whole;
    UINT whenEmpty = 0; // text that stands for an empty field; 0: none
};

// Which colons an export takes out of a label that is a caption of the detail pane too.
enum class Colons
{
    Kept,
    LastRemoved, // one at the end
    AllRemoved,
};

// A label of the export's second line.
struct ExportLabel
{
    UINT text = 0;
    Colons colons = Colons::Kept;
    std::wstring_view literal{}; // stands in place of a text: the same in all languages
};

// What a log class shows.
struct LogLayout
{
    std::uint32_t type;
    UINT iconBitmap = 0; // 0: the list shows no icons
    std::span<const UINT> titles{};
    std::span<const LogColumn> columns{};
    std::span<const LogInfoRow> infoRows{};
    std::span<const ExportLabel> exportLabels{};
};
