#include "framework/ui/kestrix/controls/ExtendButton.h"
#include "framework/ui/kestrix/controls/FlexBitmapButton.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/gallery/Gallery.h"

namespace
{

constexpr SIZE PushButton{88, 32};
constexpr SIZE CaptionButton{28, 28};

void Hover(CWnd& button)
{
    button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
}

void Press(CWnd& button)
{
    button.SendMessage(BM_SETSTATE, TRUE);
}

void Disable(CWnd& button)
{
    button.EnableWindow(false);
}

template <class Button>
GalleryItem Item(const std::wstring& caption, SIZE size, const std::wstring& text, DWORD style,
                 const std::function<void(Button&)>& prepare)
{
    return {caption, size,
            [=](CWnd& gallery, const RECT& place)
            {
                const LanguageFile language;
                auto button = std::make_unique<Button>();
                button->CWnd::Create(WC_BUTTONW, text, WS_CHILD | WS_VISIBLE | style, place, gallery, -1);
                button->SetFont(gallery.GetFont());
                prepare(*button);
                return button;
            }};
}

GalleryItem Skinned(const std::wstring& caption, const std::function<void(CExtendButton&)>& prepare)
{
    const auto skin = [prepare](CExtendButton& button)
    {
        button.SetFrame(false);
        button.SetLayout(false, 0, 0);
        button.SetNormalBitmap(IDB_BUTTON_FACE);
        button.SetHotBitmap(IDB_BUTTON_FACE);
        button.SetLockedBitmap(IDB_BUTTON_FACE);
        prepare(button);
    };
    return Item<CExtendButton>(caption, PushButton, L"Export", 0, skin);
}

GalleryItem WithIcon(const std::wstring& caption, const std::function<void(CExtendButton&)>& prepare)
{
    return Skinned(caption,
                   [prepare](CExtendButton& button)
                   {
                       button.SetLayout(false, 8, 8);
                       button.SetIcons(IDI_HELP_BUTTON);
                       prepare(button);
                   });
}

GalleryItem Caption(const std::wstring& caption, UINT normal, UINT hot,
                    const std::function<void(CFlexBitmapButton&)>& prepare)
{
    const auto load = [=](CFlexBitmapButton& button)
    {
        button.SetBackgroundColour(RGB(31, 63, 115));
        button.SetBitmaps(normal, hot);
        prepare(button);
    };
    return Item<CFlexBitmapButton>(caption, CaptionButton, {}, 0, load);
}

} // namespace

std::vector<GalleryRow> ButtonRows()
{
    const auto nothing = [](CWnd&) {};
    const auto lock = [](CExtendButton& button) { button.SetLocked(true); };
    return {
        {"push-buttons",
         {Skinned(L"normal", nothing), Skinned(L"hover", Hover), Skinned(L"pressed", Press),
          Skinned(L"disabled", Disable), Skinned(L"locked", lock)}},
        {"push-buttons-with-icon",
         {WithIcon(L"normal", nothing), WithIcon(L"hover", Hover), WithIcon(L"pressed", Press),
          WithIcon(L"disabled", Disable), WithIcon(L"locked", lock)}},
        {"plain-buttons",
         {Item<CExtendButton>(L"frame", PushButton, L"OK", 0, nothing),
          Item<CExtendButton>(L"frame pressed", PushButton, L"OK", 0, Press),
          Item<CExtendButton>(L"flat", PushButton, L"OK", BS_FLAT, nothing),
          Item<CExtendButton>(L"lines", PushButton, L"one line and another", BS_MULTILINE, nothing)}},
        {"caption-buttons",
         {Caption(L"close", IDB_CLOSE, IDB_CLOSE_HOT, nothing), Caption(L"hover", IDB_CLOSE, IDB_CLOSE_HOT, Hover),
          Caption(L"minimise", IDB_MINIMISE, IDB_MINIMISE_HOT, nothing),
          Caption(L"hover", IDB_MINIMISE, IDB_MINIMISE_HOT, Hover),
          Caption(L"small dialog", IDB_CLOSE, IDB_DIALOG_CLOSE_HOT, Hover)}},
    };
}
