#include "framework/ui/kestrix/app/SmallDialog.h"

#include "framework/ui/kestrix/app/ProductName.h"
#include "framework/ui/kestrix/app/PushButtonSkin.h"
#include "framework/ui/kestrix/controls/SkinFrame.h"
#include "resource/resource.h"

const MessageMap& CSmallDialog::Map()
{
    static constexpr auto rows = MessageRows(On::Message<WM_PAINT, &CSmallDialog::OnPaint>);
    static constexpr MessageMap map{rows, &CFramedDialog::Map};
    return map;
}

void CSmallDialog::DoDataExchange(CDataExchange& exchange)
{
    CFramedDialog::DoDataExchange(exchange);
    DDX_Control(exchange, static_cast<int>(m_numbers.heading), m_Heading);
    DDX_Control(exchange, IDOK, m_OkButton);
    DDX_Control(exchange, IDCANCEL, m_CancelButton);
    DDX_Control(exchange, static_cast<int>(m_numbers.closeBox), m_CloseBoxButton);
}

BOOL CSmallDialog::OnInitDialog()
{
    CFramedDialog::OnInitDialog();
    SetWindowText(GetProductName());
    SetHeading(m_Heading, LoadText(m_numbers.headingText));
    SetCaptionButton(m_CloseBoxButton, IDB_CLOSE, IDB_DIALOG_CLOSE_HOT, DFCS_CAPTIONCLOSE);
    SetSkin(m_OkButton, true);
    SetSkin(m_CancelButton, true);
    return TRUE;
}

// The frame is drawn straight onto the window, over what stands in its top; so that paints itself again.
void CSmallDialog::OnPaint()
{
    Default();
    m_Heading.Invalidate();
    m_CloseBoxButton.Invalidate();
    const RECT client = GetClientRect();
    DrawSkinFrame(CClientDC(m_hWnd), {client.right, client.bottom}, FrameTop::Cut);
}
