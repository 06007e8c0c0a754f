#pragma once

#include "platform/dialog/MessageRow.h"

#include <array>
#include <cstddef>

// A message map is a constexpr table, one row a message, command or notification:
//
//     const MessageMap& CPage::Map()
//     {
//         static constexpr auto rows = MessageRows(On::Message<WM_SIZE, &CPage::OnSize>,
//                                                  On::Command<IDOK, &CPage::OnBnClickedOk>,
//                                                  On::Notify<LVN_COLUMNCLICK, IDC_LIST, &CPage::OnColumnClick>);
//         static constexpr MessageMap map{rows, &CDialog::Map};
//         return map;
//     }
//
// A row checks its handler when it is compiled; two rows for the same message in one table do not compile.

// The rows of one class, then those of its base. A row of the class hides those of its bases for the same message.
class MessageMap
{
public:
    using Base = const MessageMap& (*)();

    // The table must outlive the map; base is null at the root.
    template <std::size_t count>
    constexpr MessageMap(const std::array<MessageRow, count>& rows, Base base)
        : m_pRows(rows.data()), m_nCount(count), m_pfnBase(base)
    {
    }

    // The first row that answers, from this class up to the root; null when there is none.
    const MessageRow* Find(RowKind kind, UINT code, UINT id) const;

private:
    const MessageRow* m_pRows; // and no span: its checks in debug builds are no constants
    std::size_t m_nCount;
    Base m_pfnBase;
};

// The table of the given rows.
template <class... Classes>
consteval std::array<MessageRow, sizeof...(Classes)> MessageRows(RowDetail::RowOf<Classes>... rows)
{
    static_assert((... && RowDetail::IsRelatedToAll<Classes, Classes...>),
                  "the handlers of one table belong to one class and its bases");
    const std::array<MessageRow, sizeof...(Classes)> table{rows...};
    for (std::size_t i = 0; i < table.size(); ++i)
    {
        for (std::size_t j = i + 1; j < table.size(); ++j)
        {
            const bool overlap = table[i].first <= table[j].last && table[j].first <= table[i].last;
            if (table[i].kind == table[j].kind && table[i].id == table[j].id && overlap)
            {
                RowDetail::TwoRowsOfThisTableAnswerTheSameMessage();
            }
        }
    }
    return table;
}

namespace On
{

// A message of the window itself.
template <UINT message, auto handler>
inline constexpr auto Message = RowDetail::MakeMessageRow<MessageTraits<message>, handler>(RowKind::Message, message,
                                                                                           message);

// The colours of controls of every kind, WM_CTLCOLORMSGBOX to WM_CTLCOLORSTATIC: HBRUSH(HDC, HWND control, UINT kind).
template <auto handler>
inline constexpr auto CtlColor = RowDetail::MakeMessageRow<MessageShapes::ControlColor, handler>(RowKind::Message,
                                                                                                 WM_CTLCOLORMSGBOX,
                                                                                                 WM_CTLCOLORSTATIC);

// A click on a button, a menu command or an accelerator: void().
template <UINT id, auto handler>
inline constexpr auto Command = RowDetail::MakeCommandRow<handler>(RowKind::Command, BN_CLICKED, id);

// A notification by WM_COMMAND: void().
template <UINT code, UINT id, auto handler>
inline constexpr auto Control = RowDetail::MakeCommandRow<handler>(RowKind::Command, code, id);

// A notification by WM_NOTIFY: void or LRESULT (Structure&).
template <UINT code, UINT id, auto handler>
inline constexpr auto Notify = RowDetail::MakeNotifyRow<code, handler>(RowKind::Notify, id);

// What a control tells its parent, handled by the control's own object.
template <UINT message, auto handler>
inline constexpr auto ReflectedMessage =
    RowDetail::MakeMessageRow<ReflectedMessageTraits<message>, handler>(RowKind::ReflectedMessage, message, message);

template <auto handler>
inline constexpr auto ReflectedCtlColor = RowDetail::MakeMessageRow<MessageShapes::ReflectedControlColor, handler>(
    RowKind::ReflectedMessage, WM_CTLCOLORMSGBOX, WM_CTLCOLORSTATIC);

template <UINT code, auto handler>
inline constexpr auto ReflectedCommand = RowDetail::MakeCommandRow<handler>(RowKind::ReflectedCommand, code, 0);

template <UINT code, auto handler>
inline constexpr auto ReflectedNotify = RowDetail::MakeNotifyRow<code, handler>(RowKind::ReflectedNotify, 0);

} // namespace On
