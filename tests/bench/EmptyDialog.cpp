// A dialog without controls, shown until it is closed, by an application that starts as every one of the dialog
// framework does: with the common controls and OLE.

#include "tests/bench/EmptyDialog.h"
#include "platform/dialog/DialogFramework.h"

namespace
{

class EmptyApp : public CWinApp
{
    BOOL InitInstance() override
    {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
        InitCommonControlsEx(&classes);
        if (AfxOleInit())
        {
            CDialog(IDD_EMPTY).DoModal();
        }
        return FALSE;
    }
};

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int show)
{
    EmptyApp application;
    return AfxWinMain(instance, commandLine, show);
}
