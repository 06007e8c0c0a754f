#include "tests/fuzz/ReportReference.h"

#include "tests/support/Pieces.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <chrono>
#include <cwchar>
#include <optional>
#include <string>

namespace Fuzz
{

namespace
{

using namespace std::chrono;
using Entry = ReportFilesDouble::Entry;

constexpr sys_days Today = year{2026} / November / 21;

// The day that a name tells, as days back from today; nothing for a name that tells none.
std::optional<int> DaysBack(const Entry& entry)
{
    if (entry.isDirectory || entry.name.size() != 12)
    {
        return std::nullopt;
    }
    const auto number = [&](std::size_t from, std::size_t length)
    { return static_cast<int>(std::wcstol(entry.name.substr(from, length).c_str(), nullptr, 10)); };
    const int monthNumber = number(4, 2);
    const int dayNumber = number(6, 2);
    if (number(0, 4) < 100 || monthNumber < 1 || dayNumber < 1)
    {
        return std::nullopt;
    }
    const year_month_day date{year{number(0, 4)}, month{static_cast<unsigned>(monthNumber)},
                              day{static_cast<unsigned>(dayNumber)}};
    return date.ok() ? std::optional((Today - sys_days(date)).count()) : std::nullopt;
}

// The file of a day: whatever told the day, what is read is the file whose name is written in digits.
const Entry* FileOfDay(const std::vector<Entry>& files, int daysBack, const std::wstring& extension)
{
    const year_month_day date(Today - days(daysBack));
    wchar_t name[32]{};
    std::swprintf(name, std::size(name), L"%04d%02u%02u%ls", int{date.year()}, unsigned{date.month()},
                  unsigned{date.day()}, extension.c_str());
    for (const Entry& entry : files)
    {
        if (IsSameName(entry.name, name))
        {
            return entry.isDirectory || !entry.isReadable ? nullptr : &entry;
        }
    }
    return nullptr;
}

struct Events
{
    std::uint32_t all = 0;
    std::uint32_t first = 0;
    std::uint32_t second = 0;
};

void CountLine(const std::wstring& extension, const std::wstring& line, Events& events)
{
    const std::vector<std::wstring> fields = Pieces<wchar_t>(line, L'|');
    if (extension == L".SCG" && fields.size() > 12)
    {
        events.first += Plain::NarrowedNumber(fields[12], 10) == 2;
        events.second += Plain::NarrowedNumber(fields[12], 10) == 0;
    }
    if (extension == L".SPG" && fields.size() > 2)
    {
        const std::uint32_t kind = Plain::NarrowedNumber(fields[2], 0);
        events.second += kind == 1 || kind == 2 || kind == 3;
    }
    if (extension == L".SPG" && fields.size() > 12)
    {
        ++(Plain::NarrowedNumber(fields[12], 10) == 1 ? events.first : events.second);
    }
    if (extension != L".SCG" && extension != L".SPG")
    {
        ++events.all;
    }
}

Events CountInterval(const std::vector<Entry>& files, const std::wstring& extension, int from, int to)
{
    Events events;
    for (const Entry& entry : files)
    {
        const std::optional<int> daysBack = HasExtension(entry.name, extension) ? DaysBack(entry) : std::nullopt;
        if (!daysBack || *daysBack < from || *daysBack >= to)
        {
            continue;
        }
        if (const Entry* const file = FileOfDay(files, *daysBack, extension))
        {
            for (const std::wstring& line : Plain::Lines(file->text))
            {
                CountLine(extension, line, events);
            }
        }
    }
    return events;
}

} // namespace

std::vector<ReferenceLine> CountReport(const std::vector<Entry>& files, std::uint32_t span, std::uint32_t intervals)
{
    std::vector<ReferenceLine> lines;
    for (const wchar_t* const extension : {L".VLG", L".SCG", L".SPG", L".UFG", L".PPG"})
    {
        ReferenceLine& line = lines.emplace_back();
        for (std::uint32_t i = 0; i < intervals; ++i)
        {
            const Events events = CountInterval(files, extension, static_cast<int>(i * span / intervals),
                                                static_cast<int>((i + 1) * span / intervals));
            line.series.push_back(events.all + events.first + events.second);
            line.first.push_back(events.first);
            line.second.push_back(events.second);
        }
    }
    return lines;
}

} // namespace Fuzz
