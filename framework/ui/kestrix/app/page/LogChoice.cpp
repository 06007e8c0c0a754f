#include "framework/ui/kestrix/app/page/LogChoice.h"

#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "platform/dialog/ResourceText.h"

namespace
{

constexpr wchar_t InstallerKey[] = L"Software\\Veldrane\\Zeptara\\17\\Installer";

bool IsInstalled(const LogKind& kind)
{
    return kind.installedValue == nullptr ||
           VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, InstallerKey, kind.installedValue, 0U) != 0;
}

} // namespace

void CLogChoice::Fill()
{
    for (const LogKind& kind : LogKinds())
    {
        if (!IsInstalled(kind))
        {
            continue;
        }
        const int index = AddString(LoadText(kind.choice));
        SetItemData(index, kind.type);
        m_mapTypeIndex[kind.type] = static_cast<std::uint32_t>(index);
    }
}

void CLogChoice::Select(std::uint32_t type)
{
    const auto found = m_mapTypeIndex.find(type);
    SetCurSel(found == m_mapTypeIndex.end() ? 0 : static_cast<int>(found->second));
}
