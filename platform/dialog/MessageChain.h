#pragma once

#include "platform/dialog/Wnd.h"

// The way of one message through the objects and the window's own procedure. For the framework's own sources.
class MessageChain
{
public:
    // The stations in their order. A message that is not reflected skips those of the sender.
    enum class Station
    {
        SenderFirst, // the control that a notification comes from
        Receiver,    // the window that got the message
        SenderLast,  // the control that a question about colours is about
        Default,     // the application's commands, then the window's own procedure
    };

    // Runs the first station from here on that has a row for the message. Objects are looked up at each station, so
    // that one that went on the way is passed over.
    static LRESULT Run(const WindowMessage& message, Station from);
};

// A handler of an object while it runs: what Default() needs, and whether the object is still there.
class MessageFrame
{
public:
    MessageFrame(CWnd& object, const WindowMessage& message, MessageChain::Station next) noexcept;
    ~MessageFrame();
    MessageFrame(const MessageFrame&) = delete;
    MessageFrame& operator=(const MessageFrame&) = delete;

    LRESULT RunRest() const { return MessageChain::Run(m_message, m_next); }

    CWnd* Object() const noexcept { return m_pObject; } // null when it was destroyed in the handler

    // The object goes while its handlers run: this frame and those around it leave it alone from now on.
    void ForgetObject() noexcept;

private:
    CWnd* m_pObject;
    const WindowMessage& m_message;
    const MessageChain::Station m_next;
    MessageFrame* const m_pOuter;
};
