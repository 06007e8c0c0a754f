#include "tests/e2e/EventLogs.h"

#include "tests/e2e/Process.h"

#include <array>
#include <stdexcept>

namespace
{

constexpr DWORD SamplesLimit = 60'000; // milliseconds

} // namespace

std::wstring DatabaseCommandLine(int logCode)
{
    return L"LocalLog%|" + std::to_wstring(logCode) + L"%|%|%|%|0";
}

std::wstring VirusLine(const std::wstring& time, const std::wstring& threat)
{
    return L"x|" + time + L"|1048576|x|0|0|" + threat + L"|C:\\" + threat + L".exe|4|1|0|0|";
}

std::wstring DateText(EventLog::Day day)
{
    SYSTEMTIME date{};
    date.wYear = static_cast<WORD>(day / 10'000);
    date.wMonth = static_cast<WORD>(day / 100 % 100);
    date.wDay = static_cast<WORD>(day % 100);
    std::array<wchar_t, 64> text{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr, text.data(), static_cast<int>(text.size()));
    return text.data();
}

EventLogs::EventLogs(const TemporaryFolder& installed) : m_database(installed.File(EventLog::DatabaseFileName))
{
    constexpr wchar_t library[] = L"OrlDbMg.dll";
    std::filesystem::copy_file(ProgramFolder() + library, installed.File(library));
}

void EventLogs::FillWithSamples(unsigned days, EventLog::Day last) const
{
    MakeSamples(L"--kind VLG ", days, last);
}

void EventLogs::FillWithSamplesOfAllKinds(unsigned days, EventLog::Day last) const
{
    MakeSamples(L"", days, last);
}

void EventLogs::MakeSamples(const std::wstring& arguments, unsigned days, EventLog::Day last) const
{
    const Process samples(ProgramFolder() + L"..\\suite\\SampleLogs.exe",
                          arguments + L"--days " + std::to_wstring(days) + L" --end " + std::to_wstring(last) +
                              L" --database \"" + m_database.wstring() + L"\"");
    if (samples.ExitCode(SamplesLimit) != 0)
    {
        throw std::runtime_error("the samples of the test cannot be made");
    }
}

void EventLogs::Append(std::uint32_t subType, EventLog::Day day, const std::vector<std::wstring>& lines) const
{
    EventLog::EventDatabase::Create(m_database).Append(subType, day, lines);
}

std::vector<EventLog::Day> EventLogs::VirusDays() const
{
    return EventLog::EventDatabase::Open(m_database).Days(VirusSubType);
}

std::vector<std::wstring> EventLogs::VirusLines(EventLog::Day day) const
{
    std::vector<std::wstring> lines;
    EventLog::EventDatabase::Open(m_database)
        .ReadPeriod(VirusSubType, {{day, 0}, {day, 235'959}},
                    [&](std::wstring_view line) { lines.emplace_back(line); });
    return lines;
}

std::vector<std::wstring> EventLogs::VirusDates() const
{
    std::vector<std::wstring> dates;
    for (const EventLog::Day day : VirusDays())
    {
        dates.push_back(DateText(day));
    }
    return dates;
}

void EventLogs::Damage() const
{
    Execute("ALTER TABLE events RENAME TO damaged_events");
}

void EventLogs::Mend() const
{
    Execute("ALTER TABLE damaged_events RENAME TO events");
}

void EventLogs::Execute(const char* statements) const
{
    EventLog::Connection(m_database, EventLog::OpenMode::Existing, EventLog::EventDatabase::BusyTimeout)
        .Execute(statements);
}
