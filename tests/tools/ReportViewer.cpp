// The viewer as a product would have it that shows the report: the same program with the form's other shape.

#include "framework/ui/kestrix/app/Kestrix.h"

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
    ReportApp application;
    return AfxWinMain(instance, commandLine, show);
}
