#include "suite/samples/MonthFeed.h"

#include "suite/database/LogKinds.h"
#include "suite/import/DatabaseFeed.h"
#include "suite/samples/Month.h"

#include <string>

namespace Samples
{

namespace
{

EventLog::Day DayOf(Date date)
{
    const std::chrono::year_month_day day(date);
    return static_cast<EventLog::Day>(static_cast<int>(day.year())) * 10000 + static_cast<unsigned>(day.month()) * 100 +
           static_cast<unsigned>(day.day());
}

} // namespace

void FeedMonth(const std::filesystem::path& database, std::span<const Kind* const> kinds, Date end, unsigned days,
               std::uint64_t seed, const TakeProgress& tell)
{
    Import::DatabaseFeed feed(database);
    Progress progress;
    MakeMonth(kinds, end, days, seed,
              [&](const Kind& kind, Date date, std::span<const std::wstring> lines)
              {
                  progress.days += 1;
                  progress.records += feed.Put(*EventLog::FindKindOfExtension(kind.extension), DayOf(date), lines);
                  tell(progress);
              });
    progress.done = true;
    tell(progress);
}

} // namespace Samples
