#include "framework/ui/kestrix/app/PushButtonSkin.h"

#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "resource/resource.h"

namespace
{

// A text beside no margin is centred in the room after the gap.
constexpr int NoMargin = 0;
constexpr int NoGap = 0;

} // namespace

void SetSkin(CExtendButton& button, bool centred)
{
    button.SetFrame(false); // the face has its own edge
    if (centred)
    {
        button.SetLayout(false, NoMargin, NoGap);
    }
    button.SetNormalBitmap(IDB_BUTTON_FACE);
    button.SetHotBitmap(IDB_BUTTON_FACE);
    button.SetOwnCursor(IDC_HAND_CURSOR);
    button.ShowWindow(SW_SHOW);
}
