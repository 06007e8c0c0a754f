#include "framework/ui/kestrix/app/page/PurgeFlow.h"

#include "framework/ui/kestrix/app/DelLogDlg.h"
#include "framework/ui/kestrix/app/SettingLogDlg.h"
#include "framework/ui/kestrix/app/page/DateList.h"
#include "framework/ui/kestrix/app/page/PurgeOrders.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

void ChangePurgeSettings()
{
    CSettingLogDlg dialog;
    if (dialog.DoModal() == IDOK)
    {
        StorePurgeSettings(dialog.m_nPurgeFre, dialog.m_nPurgeFlag);
    }
}

// While the dialog stands, and while the service answers, the end of another purge can fill the list anew. So the day
// is the one that the dialog has kept, and not what stands in its place in the list by now.
bool DeleteEntries(CDateList& dates, const LogKind& kind)
{
    if (dates.GetCount() == 0)
    {
        return false;
    }
    CDelLogDlg dialog;
    dialog.m_pDateList = &dates;
    dialog.m_nTotalBytes = static_cast<std::int32_t>(dates.FileBytes());
    dialog.m_mapLogFiles = dates.FileSizes();
    return dialog.DoModal() == IDOK &&
           OrderPurge(static_cast<std::uint32_t>(kind.commandCode), {dialog.m_strDate, dialog.m_nDateData});
}
