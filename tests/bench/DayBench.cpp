// The viewer on a day of a million records: until they are painted, beside reading them alone, and until it has gone,
// beside the viewer on an empty day.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/bench/Bench.h"
#include "tests/bench/DailyFile.h"
#include "tests/bench/StartedProgram.h"
#include "tests/bench/Timing.h"

namespace
{

constexpr double Budget = 1.5;
constexpr std::uint64_t Records = 1'000'000;

} // namespace

Figures BenchDay()
{
    const DailyFile day(Records);
    CZPTLogVir log;
    log.m_bUseDBMgr = false;
    StartedViewer viewer(day.Path());
    Require(!viewer.IsOfOneColour(), "the list of the viewer shows no records");
    const std::vector<double> times = MedianTimes({
        {[&] { Require(log.ReadLogW(day.Path()) && log.GetLogCount() == Records, "the log missed records"); },
         [&] { log.ClearLog(); }},
        {[&] { viewer.Run(); }, [&] { viewer.Close(); }},
    });
    return {{"day: until the list of 1,000,000 records is painted", times[1], "ms", times[0], Budget}};
}

Figures BenchClose()
{
    const DailyFile day(Records);
    const DailyFile emptyDay(0);
    StartedViewer viewer(day.Path());
    StartedViewer empty(emptyDay.Path());
    // There is one viewer at a time.
    const auto change = [](StartedViewer& ending, StartedViewer& next)
    {
        ending.WaitForEnd();
        next.Run();
    };
    empty.Run();
    const std::vector<double> gone = MedianTimes({
        {[&] { empty.CloseWindow(); }, [&] { change(empty, viewer); }},
        {[&] { viewer.CloseWindow(); }, [&] { change(viewer, empty); }},
    });
    const std::vector<double> ended = MedianTimes({
        {[&] { empty.Close(); }, [&] { viewer.Run(); }},
        {[&] { viewer.Close(); }, [&] { empty.Run(); }},
    });
    empty.Close();
    return {
        {"close: until the window with 1,000,000 records has gone", gone[1], "ms", gone[0], Budget},
        // The system takes the memory of a program back page by page: that is no longer the user's wait.
        {"close: until the program with 1,000,000 records has ended", ended[1], "ms", ended[0], {}},
    };
}
