#include "framework/ui/kestrix/controls/MinimisedIcon.h"

UniqueIcon LoadMinimisedIcon(UINT icon)
{
    return LoadIconImage(icon, {::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON)});
}

void PaintMinimisedIcon(const CWindow& window, HICON icon)
{
    const CPaintDC dc(window);
    window.SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()));
    const RECT client = window.GetClientRect();
    const int width = ::GetSystemMetrics(SM_CXICON);
    const int height = ::GetSystemMetrics(SM_CYICON);
    ::DrawIcon(dc, (client.right - width + 1) / 2, (client.bottom - height + 1) / 2, icon);
}
