#include "tests/support/ImportPatch.h"
#include "tests/ui/gallery/SkinDialog.h"

#include <gtest/gtest.h>

extern "C" decltype(&::SelectPalette) __imp_SelectPalette;
extern "C" decltype(&::RealizePalette) __imp_RealizePalette;

namespace
{

// A screen of 256 colours: notes which palette is realised and how, and says how many of its entries changed.
class PaletteScreen
{
public:
    explicit PaletteScreen(UINT changed)
    {
        s_changed = changed;
        s_realised = 0;
        s_inBackground = -1;
    }

    int Realised() const { return s_realised; }

    BOOL InBackground() const { return s_inBackground; }

private:
    static HPALETTE WINAPI Select(HDC, HPALETTE, BOOL inBackground)
    {
        s_selected = inBackground;
        return static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    }

    static UINT WINAPI Realise(HDC)
    {
        ++s_realised;
        s_inBackground = s_selected;
        return s_changed;
    }

    static inline UINT s_changed = 0;
    static inline int s_realised = 0;
    static inline BOOL s_selected = -1;
    static inline BOOL s_inBackground = -1;

    const ImportPatch<decltype(&::SelectPalette)> m_select{__imp_SelectPalette, &Select};
    const ImportPatch<decltype(&::RealizePalette)> m_realise{__imp_RealizePalette, &Realise};
};

class BitmapDialogPaletteTest : public ::testing::Test
{
protected:
    BitmapDialogPaletteTest()
    {
        m_dialog.SetBackground(IDB_SKIN_INDEXED);
        m_dialog.ShowWindow(SW_SHOWNA);
        m_dialog.UpdateWindow();
    }

    bool IsInvalid() const { return GetUpdateRect(m_dialog, nullptr, FALSE); }

    void TellPaletteChanged(HWND cause) { m_dialog.SendMessage(WM_PALETTECHANGED, reinterpret_cast<WPARAM>(cause)); }

    CSkinDialog m_dialog{{100, 80}};
    CSkinDialog m_other{{100, 80}};
};

} // namespace

TEST_F(BitmapDialogPaletteTest, ANewPaletteIsRealisedInFrontAndTheWindowPaintedAnew)
{
    const PaletteScreen screen(3);
    EXPECT_EQ(1, m_dialog.SendMessage(WM_QUERYNEWPALETTE));
    EXPECT_EQ(1, screen.Realised());
    EXPECT_FALSE(screen.InBackground());
    EXPECT_TRUE(IsInvalid());
}

TEST_F(BitmapDialogPaletteTest, WithNoEntryChangedNothingIsPaintedAndTheAnswerIs0)
{
    for (const UINT changed : {0u, UINT{GDI_ERROR}})
    {
        const PaletteScreen screen(changed);
        EXPECT_EQ(0, m_dialog.SendMessage(WM_QUERYNEWPALETTE));
        EXPECT_EQ(1, screen.Realised());
        EXPECT_FALSE(IsInvalid());
    }
}

TEST_F(BitmapDialogPaletteTest, AnotherWindowsPaletteIsFollowedInTheBackground)
{
    const PaletteScreen screen(2);
    TellPaletteChanged(m_other);
    EXPECT_EQ(1, screen.Realised());
    EXPECT_TRUE(screen.InBackground());
    EXPECT_TRUE(IsInvalid());
}

TEST_F(BitmapDialogPaletteTest, TheWindowItselfAndItsChildrenAreNotFollowed)
{
    const PaletteScreen screen(2);
    TellPaletteChanged(m_dialog);
    TellPaletteChanged(m_dialog.GetDlgItem(IDC_SKIN_TEXT));
    EXPECT_EQ(0, screen.Realised());
    EXPECT_FALSE(IsInvalid());
}

TEST_F(BitmapDialogPaletteTest, WithoutAPaletteBothGoToTheDefaultHandling)
{
    m_dialog.SetBackground(IDB_SKIN_PICTURE);
    m_dialog.UpdateWindow();
    const PaletteScreen screen(3);
    EXPECT_EQ(0, m_dialog.SendMessage(WM_QUERYNEWPALETTE));
    TellPaletteChanged(m_other);
    EXPECT_EQ(0, screen.Realised());
    EXPECT_FALSE(IsInvalid());
}
