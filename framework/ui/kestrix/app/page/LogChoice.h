#pragma once

#include "platform/dialog/ComboBox.h"

#include <cstdint>
#include <map>

// The page's choice of logs: an entry for each kind of log that this computer can have.
class CLogChoice : public CComboBox
{
public:
    void Fill();

    // A type that has no entry selects the first one.
    void Select(std::uint32_t type);

    // The type of the selected entry.
    std::uint32_t SelectedType() const { return static_cast<std::uint32_t>(GetItemData(GetCurSel())); }

private:
    std::map<std::uint32_t, std::uint32_t> m_mapTypeIndex; // log type to its entry
};
