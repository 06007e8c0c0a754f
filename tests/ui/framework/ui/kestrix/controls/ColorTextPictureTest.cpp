#include "framework/ui/kestrix/controls/ColorText.h"

#include "tests/support/Picture.h"
#include "tests/ui/framework/ui/kestrix/controls/Ground.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace
{

using Horizontal = CColorText::Horizontal;
using Vertical = CColorText::Vertical;

constexpr COLORREF Ink = RGB(0, 0, 160);
constexpr COLORREF Paper = RGB(255, 255, 224);
constexpr COLORREF FrameColour = RGB(160, 64, 0);

// Labels of one size, side by side on the ground.
class ColorTextPictureTest : public ::testing::Test
{
protected:
    static constexpr SIZE LabelSize{96, 40};
    static constexpr LONG Distance = 6;

    CColorText& Label(int column, int row, const std::wstring& text = L"Label g")
    {
        const LONG left = Distance + column * (LabelSize.cx + Distance);
        const LONG top = Distance + row * (LabelSize.cy + Distance);
        auto& label = *m_labels.emplace_back(std::make_unique<CColorText>());
        label.Create(text, WS_CHILD | WS_VISIBLE | SS_NOTIFY, {left, top, left + LabelSize.cx, top + LabelSize.cy},
                     m_ground, static_cast<int>(m_labels.size()));
        label.SetTextColour(Ink);
        return label;
    }

    // The part of the ground that holds this many labels.
    Picture Seen(int columns, int rows)
    {
        m_ground.Show();
        const SIZE size{Distance + columns * (LabelSize.cx + Distance), Distance + rows * (LabelSize.cy + Distance)};
        return PictureOf(size,
                         [this, size](HDC dc)
                         {
                             const CClientDC screen(m_ground);
                             BitBlt(dc, 0, 0, size.cx, size.cy, screen, 0, 0, SRCCOPY);
                         });
    }

    // One label for each place of the text, those of a row with the same vertical one.
    template <class Setting>
    void AllAlignments(Setting set)
    {
        static constexpr std::array Rows{Vertical::WrappedTop, Vertical::Top, Vertical::Centre, Vertical::Bottom};
        static constexpr std::array Columns{Horizontal::Left, Horizontal::Centre, Horizontal::Right};
        for (int row = 0; row < 4; ++row)
        {
            for (int column = 0; column < 3; ++column)
            {
                CColorText& label = Label(column, row);
                label.SetFrame(FrameColour, true);
                label.SetAlignment(Columns.at(column), Rows.at(row));
                set(label);
            }
        }
    }

    Ground m_ground{{320, 240}};
    std::vector<std::unique_ptr<CColorText>> m_labels;
};

} // namespace

TEST_F(ColorTextPictureTest, TheTextStandsWhereItsAlignmentSays)
{
    AllAlignments([](CColorText&) {});
    EXPECT_PICTURE(Seen(3, 4), "alignments");
}

TEST_F(ColorTextPictureTest, AWrappedTextBreaksIntoLinesAndTheOthersShowOne)
{
    AllAlignments([](CColorText& label) { label.SetText(L"Several words that need three lines to stand here"); });
    EXPECT_PICTURE(Seen(3, 4), "long-texts");
}

TEST_F(ColorTextPictureTest, TheGroundIsTheParentsOrBehindTheCharactersOrInTheWholeLabel)
{
    Label(0, 0);
    Label(1, 0).SetBackground(Paper, false);
    Label(2, 0).SetBackground(Paper, true);
    Label(0, 1).SetBackground(CColorText::NoColour, true);
    EXPECT_PICTURE(Seen(3, 2), "grounds");
}

TEST_F(ColorTextPictureTest, TheFrameIsShownInItsColourAndMovesALeftText)
{
    for (int column = 0; column < 3; ++column)
    {
        Label(column, 0).SetAlignment(Horizontal::Left, Vertical::Centre);
    }
    m_labels[1]->SetFrame(FrameColour, true);
    m_labels[2]->SetFrame(FrameColour, false);
    Label(0, 1).SetFrame(CColorText::NoColour, true);
    Label(1, 1).SetFrame(FrameColour, true);
    m_labels[4]->SetBackground(Paper, true);
    EXPECT_PICTURE(Seen(3, 2), "frames");
}

TEST_F(ColorTextPictureTest, AnIconStandsInTheMiddleInsteadOfTheText)
{
    // A cross on a square of 16 pixels.
    std::array<BYTE, 32> mask{};
    std::array<BYTE, 32> colour{};
    colour.fill(0xff);
    for (std::size_t i = 0; i < 16; ++i)
    {
        colour[2 * i + i / 8] &= static_cast<BYTE>(~(0x80 >> (i % 8)));
        colour[2 * i + (15 - i) / 8] &= static_cast<BYTE>(~(0x80 >> ((15 - i) % 8)));
    }
    const UniqueIcon icon(CreateIcon(nullptr, 16, 16, 1, 1, mask.data(), colour.data()));
    Label(0, 0).SetIcon(icon.get(), {16, 16});
    Label(1, 0).SetIcon(icon.get(), {32, 32});
    m_labels[1]->SetFrame(FrameColour, true);
    m_labels[1]->SetBackground(Paper, true);
    Label(2, 0).SetIcon(icon.get(), {15, 15});   // half a pixel of the free space is left out
    Label(0, 1).SetIcon(icon.get(), {120, 100}); // larger than the label: from its corner
    EXPECT_PICTURE(Seen(3, 3), "icons");
}

TEST_F(ColorTextPictureTest, AHotLinkHasItsHoverColour)
{
    for (int column = 0; column < 3; ++column)
    {
        CColorText& link = Label(column, 0);
        link.SetFontLook({.underline = true});
        link.EnableHover(column != 2);
    }
    m_labels[1]->SendMessage(WM_MOUSEHOVER);
    m_labels[2]->SendMessage(WM_MOUSEHOVER);
    EXPECT_PICTURE(Seen(3, 1), "hover");
}

TEST_F(ColorTextPictureTest, TheFocusIsMarkedAroundTheTextOrTheLabel)
{
    AllAlignments(
        [](CColorText& label)
        {
            label.SetFrame(CColorText::NoColour, false);
            label.ShowFocus(true);
            label.SendMessage(WM_SETFOCUS);
        });
    EXPECT_PICTURE(Seen(3, 4), "focus");
}

TEST_F(ColorTextPictureTest, NoFocusIsMarkedUnlessItIsToBeShownAndThere)
{
    Label(0, 0).SendMessage(WM_SETFOCUS);
    Label(1, 0).ShowFocus(true);
    Label(2, 0).ShowFocus(true);
    m_labels[2]->SendMessage(WM_SETFOCUS);
    m_labels[2]->SendMessage(WM_KILLFOCUS);
    EXPECT_PICTURE(Seen(3, 1), "no-focus");
}

TEST_F(ColorTextPictureTest, TheFontHasTheLooksThatAreSet)
{
    Label(0, 0).SetFontLook({.height = 18});
    Label(1, 0).SetFontLook({.weight = 700});
    Label(2, 0).SetFontLook({.italic = true});
    Label(0, 1).SetFontLook({.underline = true});
    Label(1, 1).SetFontLook({.strikeOut = true});
    Label(2, 1).SetFontLook({.height = 14, .faceName = L"Liberation Serif"});
    Label(0, 2).SetFontLook({.height = 30});
    m_labels[6]->SetTextFont(&m_ground.m_font);
    EXPECT_PICTURE(Seen(3, 3), "fonts");
}
