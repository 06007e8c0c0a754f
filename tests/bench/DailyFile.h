#pragma once

#include "suite/samples/Month.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <string>

// A daily file of sample records of the virus log with the name of its day, for the viewer to open.
class DailyFile
{
public:
    explicit DailyFile(std::uint64_t records)
    {
        constexpr std::chrono::year_month_day day{std::chrono::year(2026), std::chrono::January, std::chrono::day(1)};
        constexpr std::uint64_t seed = 1;
        Samples::WriteLines(Path(), *Samples::FindKind(L"VLG"), day, records, seed);
    }

    std::wstring Path() const { return m_folder.File(L"20260101.VLG"); }

private:
    TemporaryFolder m_folder;
};
