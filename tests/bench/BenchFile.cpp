#include "tests/bench/BenchFile.h"

#include "suite/samples/Month.h"

#include <windows.h>

#include <chrono>
#include <filesystem>

BenchFile::BenchFile(std::wstring_view extension, std::uint64_t records)
    : m_path((std::filesystem::temp_directory_path() /
              (L"KestrixBench-" + std::to_wstring(GetCurrentProcessId()) + L"." + std::wstring(extension)))
                 .wstring())
{
    constexpr std::chrono::year_month_day day{std::chrono::year(2026), std::chrono::January, std::chrono::day(1)};
    constexpr std::uint64_t seed = 1;
    Samples::WriteLines(m_path, *Samples::FindKind(extension), day, records, seed);
}

BenchFile::~BenchFile()
{
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

std::uint64_t BenchFile::Size() const
{
    return std::filesystem::file_size(m_path);
}
