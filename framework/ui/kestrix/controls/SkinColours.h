#pragma once

#include <windows.h>

// The colours of the skin's texts, of what they stand on, and of the mark of the focus. Grounds that are drawn have the
// colour that resource/art/palette.tsv gives them.
namespace SkinColour
{

inline constexpr COLORREF Ground = RGB(0xFF, 0xFF, 0xFF);
inline constexpr COLORREF Title = RGB(0x1D, 0x3F, 0x73);
inline constexpr COLORREF Face = RGB(0xF3, 0xF6, 0xFB);
inline constexpr COLORREF Tab = RGB(0xE6, 0xEC, 0xF4);
inline constexpr COLORREF ListHeading = RGB(0xE8, 0xEA, 0xEF);
inline constexpr COLORREF DetailHeading = RGB(0xDF, 0xE2, 0xE7);

inline constexpr COLORREF Text = RGB(0, 0, 0);
inline constexpr COLORREF TitleText = RGB(0xFF, 0xFF, 0xFF);
inline constexpr COLORREF Link = RGB(0, 0, 0xFF);

inline constexpr COLORREF Focus = RGB(0x2B, 0x5F, 0xA8);      // the accent of the palette
inline constexpr COLORREF TitleFocus = RGB(0xFE, 0xFE, 0xFE); // in the title bar: its paper

} // namespace SkinColour

// Whether the user needs the system's own colours. It may change while the program runs.
bool IsHighContrast() noexcept;

// The colour of the skin, or in high contrast the system's of this number, COLOR_WINDOW or another.
COLORREF SkinOrSystem(COLORREF skin, int system) noexcept;

// Marks the focus with a rectangle inside the edges of this one, a pixel wide at 96 dots an inch.
void DrawFocusMark(HDC dc, const RECT& rect, COLORREF colour = SkinColour::Focus, int system = COLOR_BTNTEXT) noexcept;
