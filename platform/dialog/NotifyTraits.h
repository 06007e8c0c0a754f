#pragma once

#include <windows.h>

#include <commctrl.h>

// The structure that comes with a notification of the common controls. A code without an entry cannot stand in a
// message map: add it here.
template <UINT code>
struct NotifyTraits;

// clang-format off
template <> struct NotifyTraits<NM_CLICK> { using Structure = NMITEMACTIVATE; };
template <> struct NotifyTraits<NM_DBLCLK> { using Structure = NMITEMACTIVATE; };
template <> struct NotifyTraits<NM_RCLICK> { using Structure = NMITEMACTIVATE; };
template <> struct NotifyTraits<NM_RETURN> { using Structure = NMHDR; };
template <> struct NotifyTraits<NM_SETFOCUS> { using Structure = NMHDR; };
template <> struct NotifyTraits<NM_KILLFOCUS> { using Structure = NMHDR; };
template <> struct NotifyTraits<NM_CUSTOMDRAW> { using Structure = NMCUSTOMDRAW; };
template <> struct NotifyTraits<LVN_COLUMNCLICK> { using Structure = NMLISTVIEW; };
template <> struct NotifyTraits<LVN_ITEMCHANGING> { using Structure = NMLISTVIEW; };
template <> struct NotifyTraits<LVN_ITEMCHANGED> { using Structure = NMLISTVIEW; };
template <> struct NotifyTraits<LVN_DELETEITEM> { using Structure = NMLISTVIEW; };
template <> struct NotifyTraits<LVN_ITEMACTIVATE> { using Structure = NMITEMACTIVATE; };
template <> struct NotifyTraits<LVN_GETDISPINFOW> { using Structure = NMLVDISPINFOW; };
template <> struct NotifyTraits<LVN_ODFINDITEMW> { using Structure = NMLVFINDITEMW; };
template <> struct NotifyTraits<LVN_KEYDOWN> { using Structure = NMLVKEYDOWN; };
template <> struct NotifyTraits<HDN_ITEMCLICKW> { using Structure = NMHEADERW; };
template <> struct NotifyTraits<TCN_SELCHANGE> { using Structure = NMHDR; };
template <> struct NotifyTraits<TCN_SELCHANGING> { using Structure = NMHDR; };
template <> struct NotifyTraits<TTN_GETDISPINFOW> { using Structure = NMTTDISPINFOW; };
template <> struct NotifyTraits<TTN_SHOW> { using Structure = NMHDR; };

// clang-format on
