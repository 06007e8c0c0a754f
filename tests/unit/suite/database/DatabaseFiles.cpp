#include "tests/unit/suite/database/DatabaseFiles.h"

namespace EventLog
{

Period DaysBetween(Day first, Day last)
{
    return {{first, 0}, {last, 235959}};
}

Strings LinesOf(const EventDatabase& database, std::uint32_t kind, Day first, Day last)
{
    return LinesOf(database, kind, DaysBetween(first, last));
}

Strings LinesOf(const EventDatabase& database, std::uint32_t kind, const Period& period)
{
    Strings lines;
    database.ReadPeriod(kind, period, [&](std::wstring_view line) { lines.emplace_back(line); });
    return lines;
}

void MakeFilledDatabase(const std::wstring& path, int lines)
{
    Strings all;
    for (int i = 0; i < lines; ++i)
    {
        all.push_back(L"20260101|120000|" + std::to_wstring(i));
    }
    EventDatabase::Create(path).Append(Virus, 20260101, all);
}

} // namespace EventLog
