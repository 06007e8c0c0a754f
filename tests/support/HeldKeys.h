#pragma once

#include <windows.h>

#include <array>
#include <initializer_list>

// Keys that this thread finds held down, and no others beside them, for the life of the object.
class HeldKeys
{
public:
    HeldKeys(std::initializer_list<int> keys)
    {
        ::GetKeyboardState(m_arrBefore.data());
        std::array<BYTE, 256> held{};
        for (const int key : keys)
        {
            held[static_cast<std::size_t>(key)] = 0x80;
        }
        ::SetKeyboardState(held.data());
    }

    ~HeldKeys() { ::SetKeyboardState(m_arrBefore.data()); }

    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;

private:
    std::array<BYTE, 256> m_arrBefore{};
};
