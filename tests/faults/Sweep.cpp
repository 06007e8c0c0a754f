#include "tests/faults/Sweep.h"

#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/FrameworkState.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numeric>
#include <random>
#include <ranges>
#include <set>

namespace
{

constexpr const char* KindNames[] = {"none", "allocation", "file", "registry", "GDI", "COM", "SQLite"};

// How many calls of a kind are tried in an operation.
int MostPoints()
{
    constexpr int inEveryTest = 3;
    const char* const wanted = std::getenv("KESTRIX_FAULTS");
    return wanted == nullptr ? inEveryTest : std::atoi(wanted);
}

// The numbers of the calls that fail, one at a time: all, or else the first and some that are drawn.
std::vector<int> PointsOf(int calls)
{
    static std::mt19937 random(Seed());
    std::vector<int> points(static_cast<std::size_t>(calls));
    std::iota(points.begin(), points.end(), 1);
    std::shuffle(points.begin() + std::min(calls, 1), points.end(), random);
    points.resize(static_cast<std::size_t>(std::min(calls, MostPoints())));
    std::ranges::sort(points);
    return points;
}

using Classes = std::multiset<std::wstring>;

BOOL CALLBACK NoteClass(HWND window, LPARAM to)
{
    wchar_t name[64]{};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    reinterpret_cast<Classes*>(to)->insert(name);
    return TRUE;
}

BOOL CALLBACK NoteClasses(HWND window, LPARAM to)
{
    EnumChildWindows(window, &NoteClass, to);
    return NoteClass(window, to);
}

// Those of the windows that this thread has.
Classes LiveWindows()
{
    Classes classes;
    EnumThreadWindows(GetCurrentThreadId(), &NoteClasses, reinterpret_cast<LPARAM>(&classes));
    return classes;
}

} // namespace

Sweep::Sweep()
    : m_watch(
          [this](const char* what)
          {
              std::printf("%s: %s\n", m_strPoint.c_str(), what);
              std::fflush(stdout);
          })
{
    // The framework keeps some for good, as many as were there at once.
    const std::array<CMemoryDC, std::tuple_size_v<decltype(FrameworkState::spareMemoryDCs)>> spares;
}

void Sweep::TraceAnew()
{
    m_trace.reset();
    m_trace.emplace();
}

void Sweep::Try(const Operation& operation, std::initializer_list<FaultKind> kinds)
{
    Run(operation, FaultKind::None, 0); // what is kept for good is there now
    for (const FaultKind kind : kinds)
    {
        TryKind(operation, kind);
    }
}

void Sweep::TryKind(const Operation& operation, FaultKind kind)
{
    Counts counts;
    const std::size_t first = m_boxes.Boxes().size();
    counts.calls = Run(operation, kind, 0);
    EXPECT_GT(counts.calls, 0) << operation.name << " makes no such call";
    const std::wstring outcome = operation.outcome(); // the usual one
    const auto boxes = BoxesSince(first);
    const auto handles = LiveHandles::All();
    const auto windows = LiveWindows();
    for (const int number : PointsOf(counts.calls))
    {
        SCOPED_TRACE(m_strPoint = std::string(operation.name) + ", " + KindNames[static_cast<int>(kind)] + " call " +
                                  std::to_string(number));
        const std::size_t before = m_boxes.Boxes().size();
        if (Run(operation, kind, number) < number)
        {
            continue; // the calls of this run were fewer, so that none failed
        }
        ++counts.tried;
        const bool isTold = !std::ranges::includes(boxes, BoxesSince(before)) || operation.isTold();
        const bool isDone = operation.outcome() == outcome;
        ++(isDone ? counts.done : isTold ? counts.told : !m_trace->Errors().empty() ? counts.traced : counts.silent);
        EXPECT_TRUE(operation.isWhole());
        Run(operation, FaultKind::None, 0);
        EXPECT_EQ(operation.outcome(), outcome);
        EXPECT_EQ(LiveHandles::All(), handles);
        EXPECT_EQ(LiveWindows(), windows);
    }
    Write(operation, kind, counts);
}

// The texts of the boxes after so many.
std::set<std::wstring> Sweep::BoxesSince(std::size_t count) const
{
    std::set<std::wstring> texts;
    for (const MessageBoxRecorder::Box& box : m_boxes.Boxes() | std::views::drop(count))
    {
        texts.insert(box.text);
    }
    return texts;
}

int Sweep::Run(const Operation& operation, FaultKind kind, int number)
{
    m_watch.Begin();
    operation.prepare();
    m_trace->Clear();
    m_kind = kind;
    m_nNumber = number;
    GoOn();
    operation.run();
    return m_faults.Disarm();
}

void Sweep::Write(const Operation& operation, FaultKind kind, const Counts& counts) const
{
    std::ostringstream row;
    row << operation.name << '\t' << KindNames[static_cast<int>(kind)] << '\t' << counts.calls << '\t' << counts.tried
        << '\t' << counts.done << '\t' << counts.told << '\t' << counts.traced << '\t' << counts.silent << '\n';
    std::cout << row.str() << std::flush;
    if (std::getenv("KESTRIX_FAULTS") != nullptr)
    {
        std::ofstream(KESTRIX_FAULT_RESULTS, std::ios::app | std::ios::binary) << row.str();
    }
}
