#include "tests/faults/Sweep.h"

#include "platform/dialog/DeviceContext.h"
#include "platform/dialog/FrameworkState.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/LiveWindows.h"
#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <numeric>
#include <random>

namespace
{

constexpr const char* KindNames[] = {"none", "allocation", "file", "registry", "GDI", "COM", "SQLite"};

// What became of an operation with a failing call.
enum Result
{
    Done,
    Told,
    Traced,
    Silent,
    Results
};

// The numbers of the calls that fail, one at a time: all, or else the first and some that are drawn.
std::vector<int> PointsOf(int calls)
{
    static std::mt19937 random(Seed());
    const char* const wanted = std::getenv("KESTRIX_FAULTS");
    const int most = wanted == nullptr ? 3 : std::atoi(wanted);
    std::vector<int> points(static_cast<std::size_t>(calls));
    std::iota(points.begin(), points.end(), 1);
    std::shuffle(points.begin() + std::min(calls, 1), points.end(), random);
    points.resize(static_cast<std::size_t>(std::min(calls, most)));
    std::ranges::sort(points);
    return points;
}

} // namespace

Sweep::Sweep()
{
    // The framework keeps some for good, as many as were there at once.
    const std::array<CMemoryDC, std::tuple_size_v<decltype(FrameworkState::spareMemoryDCs)>> spares;
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
    const std::string kindName = KindNames[static_cast<int>(kind)];
    const int calls = Run(operation, kind, 0);
    EXPECT_GT(calls, 0) << operation.name << " makes no such call";
    const Outcome::Comparison isUsual = operation.outcome.Note();
    const auto boxes = BoxTexts();
    const auto handles = LiveHandles::All();
    const auto windows = LiveWindows();
    int counts[Results]{};
    for (const int number : PointsOf(calls))
    {
        SCOPED_TRACE(m_strPoint = operation.name + (", " + kindName) + " call " + std::to_string(number));
        if (Run(operation, kind, number) < number)
        {
            continue; // the calls of this run were fewer, so that none failed
        }
        const bool isTold = !std::ranges::includes(boxes, BoxTexts()) || operation.isTold();
        const bool isDone = isUsual();
        ++counts[isDone ? Done : isTold ? Told : !m_trace->Errors().empty() ? Traced : Silent];
        EXPECT_TRUE(isDone || !operation.isOldOrNew || m_isOld());
        EXPECT_TRUE(operation.isWhole());
        Run(operation, FaultKind::None, 0);
        EXPECT_TRUE(isUsual());
        EXPECT_EQ(LiveHandles::All(), handles);
        EXPECT_EQ(LiveWindows(), windows);
    }
    std::cout << "faults\t" << operation.name << '\t' << kindName << '\t' << calls << '\t'
              << std::accumulate(counts, std::end(counts), 0);
    std::ranges::for_each(counts, [](int count) { std::cout << '\t' << count; });
    std::cout << std::endl;
}

std::set<std::wstring> Sweep::BoxTexts() const
{
    std::set<std::wstring> texts;
    for (const MessageBoxRecorder::Box& box : m_boxes->Boxes())
    {
        texts.insert(box.text);
    }
    return texts;
}

int Sweep::Run(const Operation& operation, FaultKind kind, int number)
{
    m_watch.Begin(m_strPoint);
    m_boxes.emplace(IDYES);
    m_trace.emplace(); // an operation may have ended tracing
    operation.prepare();
    m_isOld = operation.isOldOrNew ? operation.outcome.Note() : nullptr;
    m_trace->Clear();
    m_kind = kind;
    m_nNumber = number;
    GoOn();
    operation.run();
    return m_faults.Disarm();
}
