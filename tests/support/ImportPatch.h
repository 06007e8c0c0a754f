#pragma once

#include <windows.h>

#include <utility>

// Puts a function of the test in the place of a system function, for all calls of this program and for the life of the
// object. The slot is the program's import entry of the function, which the linker calls __imp_NAME:
//
//     extern "C" decltype(&::WriteFile) __imp_WriteFile;
//     const ImportPatch full(__imp_WriteFile, &FailToWrite);
template <class Function>
class ImportPatch
{
public:
    ImportPatch(Function& slot, Function replacement) : m_slot(slot), m_original(Exchange(replacement)) {}

    ~ImportPatch() { Exchange(m_original); }

    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

    // The system function itself.
    Function Original() const { return m_original; }

private:
    Function Exchange(Function function)
    {
        DWORD protection = 0;
        VirtualProtect(&m_slot, sizeof m_slot, PAGE_READWRITE, &protection);
        const Function before = std::exchange(m_slot, function);
        VirtualProtect(&m_slot, sizeof m_slot, protection, &protection);
        return before;
    }

    Function& m_slot;
    Function m_original;
};
