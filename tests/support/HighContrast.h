#pragma once

#include "tests/support/ImportPatch.h"

extern "C" decltype(&::SystemParametersInfoW) __imp_SystemParametersInfoW;

// The system says that the user needs high contrast, for the life of the object. Its colours stay those of the real
// one.
class HighContrast
{
public:
    HighContrast() : m_patch(__imp_SystemParametersInfoW, &Answer) {}

private:
    static BOOL WINAPI Answer(UINT action, UINT, void* value, UINT)
    {
        if (action == SPI_GETHIGHCONTRAST)
        {
            static_cast<HIGHCONTRASTW*>(value)->dwFlags = HCF_HIGHCONTRASTON;
        }
        return TRUE;
    }

    ImportPatch<decltype(&::SystemParametersInfoW)> m_patch;
};
