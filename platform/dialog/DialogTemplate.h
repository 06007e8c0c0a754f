#pragma once

#include <windows.h>

#include <vector>

// A copy of a dialog template of the resource module, so that it can be changed before a dialog is made from it.
class DialogTemplate
{
public:
    explicit DialogTemplate(UINT id);

    // False without a template of this number, and for one that ends before what it says of itself: the system would
    // read on.
    bool IsLoaded() const { return !m_data.empty(); }

    const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_data.data()); }

    // The dialog appears when it is shown, not when it is made.
    void RemoveVisibleStyle();

private:
    std::vector<DWORD> m_data; // words of 32 bits, since the system wants it aligned to them
};
