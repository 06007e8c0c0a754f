// Prints the figures of the named benches, or of all, one tab-separated row each: name, value, unit, reference, ratio,
// budget. Ends with 0 when every ratio is within its budget, 1 when one is not, 2 when a bench could not be run.

#include "tests/bench/Bench.h"
#include "tests/support/LanguageFile.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iterator>
#include <span>
#include <string_view>

namespace
{

struct Bench
{
    std::wstring_view name;
    Figures (*run)();
};

constexpr Bench Benches[] = {
    {L"read", &BenchRead}, {L"memory", &BenchMemory}, {L"database", &BenchDatabase},
    {L"days", &BenchDays}, {L"export", &BenchExport}, {L"trace", &BenchTrace},
};

constexpr int OverBudget = 1;
constexpr int Failed = 2;

bool Print(const Figures& figures)
{
    for (const Figure& figure : figures)
    {
        std::printf("%s\t%.1f\t%s\t%.1f\t%.2f\t", figure.name.c_str(), figure.value, figure.unit.c_str(),
                    figure.reference, figure.Ratio());
        figure.budget ? std::printf("%.1f\n", *figure.budget) : std::printf("-\n");
    }
    std::fflush(stdout);
    return std::ranges::all_of(figures, &Figure::IsWithinBudget);
}

// The language file lies beside the program that is built, whatever the current folder is.
std::wstring LanguagePath()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::filesystem::path build = std::filesystem::path(path).parent_path().parent_path().parent_path();
    return (build / L"bin/resource/en-US/Kestrix.exe.mui").wstring();
}

int Run(std::span<wchar_t*> names)
{
    const LanguageFile language(LanguagePath());
    for (const wchar_t* const name : names)
    {
        if (std::ranges::find(Benches, name, &Bench::name) == std::end(Benches))
        {
            std::fprintf(stderr, "bench: there is no bench of the name %ls\n", name);
            return Failed;
        }
    }
    bool within = true;
    for (const Bench& bench : Benches)
    {
        if (names.empty() || std::ranges::find(names, bench.name) != names.end())
        {
            within = Print(bench.run()) && within;
        }
    }
    return within ? 0 : OverBudget;
}

} // namespace

int wmain(int argc, wchar_t** argv)
{
    try
    {
        return Run(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return Failed;
    }
}
