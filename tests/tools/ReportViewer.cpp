// The viewer as a product would have it that shows the report: the same program with the form's other shape. With
// KESTRIX_STANDING_CLOCK in the environment its clock stands at 21 November 2026, for pictures that are always the
// same.

#include "framework/ui/kestrix/app/Kestrix.h"
#include "tests/support/StandingClock.h"

#include <optional>

namespace
{

class ReportApp : public CKestrixApp
{
public:
    bool ParseCommandLine() override
    {
        const bool isParsed = CKestrixApp::ParseCommandLine();
        m_bLogOnly = false;
        return isParsed;
    }
};

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int show)
{
    std::optional<StandingClock> clock;
    if (GetEnvironmentVariableW(L"KESTRIX_STANDING_CLOCK", nullptr, 0) != 0)
    {
        clock.emplace();
    }
    ReportApp application;
    return AfxWinMain(instance, commandLine, show);
}
