// Prints the figures of the named benches, or of all, one tab-separated row each: name, value, unit, reference, ratio,
// budget. Ends with 0 when every ratio is within its budget, 1 when one is not, 2 when a bench could not be run.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
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
    {L"read", &BenchRead},   {L"memory", &BenchMemory}, {L"database", &BenchDatabase}, {L"days", &BenchDays},
    {L"list", &BenchList},   {L"sort", &BenchSort},     {L"clear", &BenchClear},       {L"find", &BenchFind},
    {L"day", &BenchDay},     {L"close", &BenchClose},   {L"export", &BenchExport},     {L"trace", &BenchTrace},
    {L"start", &BenchStart}, {L"rules", &BenchRules},   {L"delete", &BenchDelete},     {L"report", &BenchReport},
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

// Tracing off, as in the product of a user: a key that is not there says so, and a trace call takes its locks and goes.
void SwitchTracingOff()
{
    const auto nowhere = VdCommon::Storage::Key::InRegistry(HKEY_CURRENT_USER, L"Software\\KestrixBench\\Nowhere");
    Require(VdCommon::DebugLog::Instance().Initialize(L"bench", nowhere, L"."), "the debug log does not start");
}

int Run(std::span<wchar_t*> names)
{
    const LanguageFile language((ProductFolder() / L"resource/en-US/Kestrix.exe.mui").wstring());
    for (const wchar_t* const name : names)
    {
        if (std::ranges::find(Benches, name, &Bench::name) == std::end(Benches))
        {
            std::fprintf(stderr, "bench: there is no bench of the name %ls\n", name);
            return Failed;
        }
    }
    SwitchTracingOff();
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

std::string Narrow(std::wstring_view letters)
{
    return {letters.begin(), letters.end()};
}

// bin of the build folder, in which this program lies two folders deep.
std::filesystem::path ProductFolder()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().parent_path().parent_path() / L"bin";
}

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
