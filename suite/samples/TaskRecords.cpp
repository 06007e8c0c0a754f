#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

constexpr int SecondsPerDay = 24 * 60 * 60;

// 0 nothing found, 1 found and handled, 2 found and left to the user, 3 stopped, 4 failed, 5 one without a name.
constexpr Card<int> ScanResults[] = {{10, 0}, {5, 1}, {2, 2}, {2, 3}, {1, 4}, {1, 5}};

// A scan lasts from three minutes to an hour.
constexpr unsigned LeastScanSeconds = 180;
constexpr unsigned MostScanSeconds = 3600;

class ScanRecords : public RecordSource
{
public:
    explicit ScanRecords(Random& random) : m_random(random), m_results(ScanResults, random) {}

    void Fill(const Moment& moment, Line& line) override
    {
        const int lasted = static_cast<int>(LeastScanSeconds + m_random.Below(MostScanSeconds - LeastScanSeconds));
        const int end = moment.secondOfDay + lasted;
        line.Day(moment.date).Time(moment.secondOfDay).Day(moment.date).Time(moment.secondOfDay);
        line.Day(moment.date + std::chrono::days(end / SecondsPerDay)).Time(end % SecondsPerDay);
        line.Number(m_results.Draw());
        AddVersions(static_cast<unsigned>(moment.date.time_since_epoch().count()), line);
    }

private:
    // Engine and pattern of the virus scan, then engine, engine, rules, engine and pattern of the others. Patterns are
    // numbered by day.
    static void AddVersions(unsigned day, Line& line)
    {
        line.Text(VersionText(9, 500, 1012)).Text(VersionText(14, day, 0)).Text(VersionText(3, 2, 88));
        line.Text(VersionText(3, 2, day / 7)).Text(VersionText(6, 0, 41)).Text(VersionText(6, 0, day / 3));
    }

    Random& m_random;
    Deck<int> m_results;
};

// 0 scan, 1 update, 2 tuning, 3 one without a name.
constexpr Card<int> TaskKinds[] = {{20, 0}, {16, 1}, {8, 2}, {1, 3}};
// 0 on battery, 1 in use, 2 another task runs. The reader takes no other.
constexpr Card<int> SkipReasons[] = {{3, 0}, {3, 1}, {2, 2}};

class SkippedTaskRecords : public RecordSource
{
public:
    explicit SkippedTaskRecords(Random& random) : m_kinds(TaskKinds, random), m_reasons(SkipReasons, random) {}

    void Fill(const Moment& moment, Line& line) override
    {
        line.Number(m_nTask += 1).Empty().Day(moment.date).Time(moment.secondOfDay);
        line.Number(m_kinds.Draw()).Number(m_reasons.Draw());
    }

private:
    Deck<int> m_kinds;
    Deck<int> m_reasons;
    std::int64_t m_nTask = 20;
};

} // namespace

std::unique_ptr<RecordSource> MakeScanRecords(Random& random)
{
    return std::make_unique<ScanRecords>(random);
}

std::unique_ptr<RecordSource> MakeSkippedTaskRecords(Random& random)
{
    return std::make_unique<SkippedTaskRecords>(random);
}

} // namespace Samples
