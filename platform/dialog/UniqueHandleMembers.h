#pragma once

#include "platform/dialog/UniqueHandle.h"

// The members of UniqueHandle that know when a handle gets an owner and when it loses one. A source that includes this
// has declared a NoteHandle(kind, change), which is told of both.

template <class Traits>
void UniqueHandle<Traits>::reset(Handle handle) noexcept
{
    if (handle == m_handle)
    {
        return;
    }
    if (const Handle old = release(); old != Traits::Invalid())
    {
        const LastErrorScope keep;
        Traits::Close(old);
    }
    m_handle = handle;
    if (handle != Traits::Invalid())
    {
        NoteHandle(Traits::Kind, 1);
    }
}

template <class Traits>
typename UniqueHandle<Traits>::Handle UniqueHandle<Traits>::release() noexcept
{
    if (m_handle != Traits::Invalid())
    {
        NoteHandle(Traits::Kind, -1);
    }
    return std::exchange(m_handle, Traits::Invalid());
}
