#include "framework/ui/kestrix/controls/ColorText.h"
#include "framework/ui/kestrix/controls/CuteTabCtrl.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/ui/gallery/Gallery.h"

namespace
{

constexpr SIZE Label{110, 22};
constexpr SIZE Strip{260, 50};

GalleryItem Text(const std::wstring& caption, const std::function<void(CColorText&)>& prepare, SIZE size = Label)
{
    return {caption, size,
            [prepare](CWnd& gallery, const RECT& place)
            {
                auto label = std::make_unique<CColorText>();
                label->Create(L"Details of it", WS_CHILD | WS_VISIBLE | SS_NOTIFY, place, gallery, -1);
                label->SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
                prepare(*label);
                return label;
            }};
}

// Its bitmaps come from the language file, each time it paints.
class LanguageTabs : public CCuteTabCtrl
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LanguageFile language;
        return CCuteTabCtrl::WindowProc(message, wParam, lParam);
    }
};

GalleryItem Tabs(const std::wstring& caption, int count, int selected)
{
    return {caption, Strip,
            [=](CWnd& gallery, const RECT& place)
            {
                auto strip = std::make_unique<LanguageTabs>();
                strip->Create(WS_CHILD | WS_VISIBLE | TCS_FIXEDWIDTH, place, gallery, -1);
                strip->SetBitmaps(IDB_TAB, IDB_TAB_SELECTED);
                strip->SetItemSize({70, 20});
                for (int i = 0; i < count; ++i)
                {
                    strip->InsertItem(i, L"Tab " + std::to_wstring(i + 1));
                }
                strip->SetCurSel(selected);
                return strip;
            }};
}

} // namespace

std::vector<GalleryRow> TextRows()
{
    const auto link = [](CColorText& label)
    {
        label.SetTextColour(RGB(0, 0, 255));
        label.SetFontLook({.height = 14, .underline = true});
        label.EnableHover(true);
    };
    const auto hotLink = [link](CColorText& label)
    {
        link(label);
        label.SendMessage(WM_MOUSEHOVER, 0, MAKELPARAM(5, 5));
    };
    const auto heading = [](CColorText& label)
    {
        label.SetFontLook({.height = 16, .weight = FW_BOLD});
        label.SetBackground(0xEFEAE8, true);
        label.SetFrame(0xAC8473, true);
    };
    const auto disabled = [](CColorText& label) { label.EnableWindow(false); };
    return {
        {"texts",
         {Text(L"plain", [](CColorText&) {}), Text(L"link", link), Text(L"link, hover", hotLink),
          Text(L"heading", heading), Text(L"disabled", disabled)}},
        {"texts-aligned",
         {Text(L"centre", [](CColorText& label)
               { label.SetAlignment(CColorText::Horizontal::Centre, CColorText::Vertical::Centre); }),
          Text(L"right", [](CColorText& label)
               { label.SetAlignment(CColorText::Horizontal::Right, CColorText::Vertical::Bottom); }),
          Text(L"wrapped",
               [](CColorText& label)
               { label.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::WrappedTop); },
               {60, 44})}},
    };
}

std::vector<GalleryRow> TabRows()
{
    return {{"tabs", {Tabs(L"one", 1, 0), Tabs(L"two", 2, 0), Tabs(L"two, second", 2, 1)}},
            {"tabs-of-three", {Tabs(L"three", 3, 1), Tabs(L"none", 0, -1)}}};
}
