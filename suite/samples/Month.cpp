#include "suite/samples/Month.h"

#include "suite/common/Failure.h"
#include "suite/samples/LogFile.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace Samples
{

namespace
{

constexpr int SecondsPerDay = 24 * 60 * 60;

// One day in twelve brings three times as much as others.
constexpr unsigned BusyPercent = 8;
constexpr unsigned BusyFactor = 3;

Random KindRandom(const Kind& kind, std::uint64_t seed)
{
    Random random(seed);
    std::uint64_t mixed = random.Next();
    for (const wchar_t c : kind.extension)
    {
        mixed = mixed * 31 + c;
    }
    return Random(mixed);
}

bool IsWeekend(Date date)
{
    const std::chrono::weekday day(date);
    return day == std::chrono::Saturday || day == std::chrono::Sunday;
}

// The last day is the one that is looked at first, so it is never a quiet one or a weekend.
unsigned RecordsOfDay(const Rhythm& rhythm, Date date, bool last, Random& random)
{
    if (random.Chance(rhythm.quietPercent) && !last)
    {
        return 0;
    }
    const unsigned mean = IsWeekend(date) && !last ? rhythm.weekendRecords : rhythm.workdayRecords;
    const unsigned count = mean / 2 + random.Below(mean + 1);
    return random.Chance(BusyPercent) ? count * BusyFactor : count;
}

int StartOfRun(const HourWeights& hours, Random& random)
{
    std::uint32_t left = random.Below(std::accumulate(hours.begin(), hours.end(), 0u));
    int hour = 0;
    for (; left >= hours[hour]; ++hour)
    {
        left -= hours[hour];
    }
    return hour * 3600 + static_cast<int>(random.Below(3600));
}

// The seconds of the day at which its records are written, ascending.
std::vector<int> TimesOfDay(const Rhythm& rhythm, Date date, bool last, Random& random)
{
    std::vector<int> times;
    const unsigned count = RecordsOfDay(rhythm, date, last, random);
    while (times.size() < count)
    {
        int second = StartOfRun(*rhythm.hours, random);
        const unsigned run = 1 + random.Below(2 * rhythm.runLength - 1);
        for (unsigned i = 0; i < run && times.size() < count; ++i)
        {
            times.push_back(std::min(second, SecondsPerDay - 1));
            second += 1 + static_cast<int>(random.Below(rhythm.runGapSeconds));
        }
    }
    std::ranges::sort(times);
    return times;
}

std::vector<std::wstring> LinesOfDay(RecordSource& source, Date date, const std::vector<int>& times)
{
    std::vector<std::wstring> lines;
    Line line;
    for (std::size_t i = 0; i < times.size(); ++i)
    {
        line.Clear();
        source.Fill({date, times[i], i == 0, i + 1 == times.size()}, line);
        lines.push_back(line.Whole());
    }
    return lines;
}

void MakeDaysOfKind(const Kind& kind, Date end, unsigned days, std::uint64_t seed, const TakeDay& take)
{
    Random random = KindRandom(kind, seed);
    const std::unique_ptr<RecordSource> source = kind.makeSource(random);
    for (unsigned age = days; age-- > 0;)
    {
        const Date date = end - std::chrono::days(age);
        const std::vector<int> times = TimesOfDay(kind.rhythm, date, age == 0, random);
        if (!times.empty())
        {
            take(kind, date, LinesOfDay(*source, date, times));
        }
    }
}

} // namespace

void MakeMonth(std::span<const Kind* const> kinds, Date end, unsigned days, std::uint64_t seed, const TakeDay& take)
{
    for (const Kind* kind : kinds)
    {
        MakeDaysOfKind(*kind, end, days, seed, take);
    }
}

void WriteMonth(const std::filesystem::path& folder, std::span<const Kind* const> kinds, Date end, unsigned days,
                std::uint64_t seed)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error))
    {
        throw Suite::Failure(
            Suite::ExitCode::WorkFailed,
            "cannot make the folder " + Suite::Utf8(folder) +
                ". Check that its drive exists, that no file has its name and that you may write there.");
    }
    MakeMonth(kinds, end, days, seed,
              [&](const Kind& kind, Date date, std::span<const std::wstring> lines)
              {
                  LogFile file(folder / (DateText(date) + L"." + std::wstring(kind.extension)));
                  for (const std::wstring& line : lines)
                  {
                      file.Write(line);
                  }
                  file.Close();
              });
}

void WriteLines(const std::filesystem::path& file, const Kind& kind, Date date, std::uint64_t lines, std::uint64_t seed)
{
    Random random = KindRandom(kind, seed);
    const std::unique_ptr<RecordSource> source = kind.makeSource(random);
    LogFile log(file);
    Line line;
    for (std::uint64_t i = 0; i < lines; ++i)
    {
        line.Clear();
        source->Fill({date, static_cast<int>(i * SecondsPerDay / lines), i == 0, i + 1 == lines}, line);
        log.Write(line.Whole());
    }
    log.Close();
}

} // namespace Samples
