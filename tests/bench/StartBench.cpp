// The start of the viewer until its list is painted, beside that of a dialog without controls.

#include "tests/bench/Bench.h"
#include "tests/bench/DailyFile.h"
#include "tests/bench/StartedProgram.h"
#include "tests/bench/Timing.h"

namespace
{

constexpr double Budget = 1.7;
constexpr int Rounds = 15; // a start depends on all that the system does meanwhile

} // namespace

Figures BenchStart()
{
    const DailyFile day(10'000);
    StartedViewer viewer(day.Path());
    Require(!viewer.IsOfOneColour(), "the list of the viewer shows no records");
    StartedProgram empty(L"EmptyDialog.exe", {}, [](HWND dialog) { return dialog; });
    const std::vector<double> times = MedianTimes(
        {
            {[&] { empty.Run(); }, [&] { empty.Close(); }},
            {[&] { viewer.Run(); }, [&] { viewer.Close(); }},
        },
        Rounds);
    return {{"start: until the list of 10,000 records is painted", times[1], "ms", times[0], Budget}};
}
