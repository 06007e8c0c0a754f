#include "platform/dialog/MessageChain.h"

#include "platform/dialog/WinApp.h"

namespace
{

using Station = MessageChain::Station;

bool IsControlColor(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

// The station at which the sender is asked; Default for messages that are not reflected.
Station StationOfSender(UINT message)
{
    if (message == WM_COMMAND || message == WM_NOTIFY || message == WM_DRAWITEM)
    {
        return Station::SenderFirst;
    }
    return IsControlColor(message) ? Station::SenderLast : Station::Default;
}

const NMHDR& NotificationOf(const WindowMessage& m)
{
    return *reinterpret_cast<const NMHDR*>(m.lParam);
}

// What comes from no control is a menu's or an accelerator's: the same command as a click.
UINT CommandCodeOf(const WindowMessage& m)
{
    return m.lParam == 0 ? BN_CLICKED : HIWORD(m.wParam);
}

// The control that the message comes from or is about; null when it is the window itself or a menu.
HWND SenderOf(const WindowMessage& m)
{
    HWND sender = reinterpret_cast<HWND>(m.lParam);
    if (m.message == WM_NOTIFY)
    {
        sender = NotificationOf(m).hwndFrom;
    }
    else if (m.message == WM_DRAWITEM)
    {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(m.lParam);
        sender = item.CtlType == ODT_MENU ? nullptr : item.hwndItem;
    }
    return sender == m.window ? nullptr : sender;
}

const MessageRow* RowOfSender(const MessageMap& map, const WindowMessage& m)
{
    switch (m.message)
    {
    case WM_COMMAND:
        return map.Find(RowKind::ReflectedCommand, CommandCodeOf(m), 0);
    case WM_NOTIFY:
        return map.Find(RowKind::ReflectedNotify, NotificationOf(m).code, 0);
    default:
        return map.Find(RowKind::ReflectedMessage, m.message, 0);
    }
}

const MessageRow* RowOfReceiver(const MessageMap& map, const WindowMessage& m)
{
    const MessageRow* row = nullptr;
    if (m.message == WM_COMMAND)
    {
        row = map.Find(RowKind::Command, CommandCodeOf(m), LOWORD(m.wParam));
    }
    else if (m.message == WM_NOTIFY)
    {
        row = map.Find(RowKind::Notify, NotificationOf(m).code, static_cast<UINT>(NotificationOf(m).idFrom));
    }
    return row != nullptr ? row : map.Find(RowKind::Message, m.message, 0);
}

LRESULT RunDefault(const WindowMessage& m)
{
    if (m.message == WM_COMMAND && CommandCodeOf(m) == BN_CLICKED)
    {
        if (CWinApp* const app = AfxGetApp(); app != nullptr && app->OnCommand(LOWORD(m.wParam)))
        {
            return 0;
        }
    }
    return WindowSubclass::CallOriginal(m.window, m.message, m.wParam, m.lParam);
}

} // namespace

LRESULT MessageChain::Run(const WindowMessage& m, Station from)
{
    const Station senders = StationOfSender(m.message);
    for (int i = static_cast<int>(from); i < static_cast<int>(Station::Default); ++i)
    {
        const auto station = static_cast<Station>(i);
        if (station != Station::Receiver && station != senders)
        {
            continue;
        }
        const bool isReceiver = station == Station::Receiver;
        CWnd* const object = CWnd::FromHandlePermanent(isReceiver ? m.window : SenderOf(m));
        if (object == nullptr)
        {
            continue;
        }
        const MessageMap& map = object->GetMessageMap();
        if (const MessageRow* const row = isReceiver ? RowOfReceiver(map, m) : RowOfSender(map, m))
        {
            const MessageFrame frame(*object, m, static_cast<Station>(i + 1));
            return row->invoke(*object, m);
        }
    }
    return RunDefault(m);
}

MessageFrame::MessageFrame(CWnd& object, const WindowMessage& message, Station next) noexcept
    : m_pObject(&object), m_message(message), m_next(next), m_pOuter(object.m_pFrame)
{
    object.m_pFrame = this;
}

MessageFrame::~MessageFrame()
{
    if (m_pObject != nullptr)
    {
        m_pObject->m_pFrame = m_pOuter;
    }
}

void MessageFrame::ForgetObject() noexcept
{
    for (MessageFrame* frame = this; frame != nullptr; frame = frame->m_pOuter)
    {
        frame->m_pObject = nullptr;
    }
}
