#include "framework/ui/kestrix/app/page/PurgeOrders.h"

#include "common/DataConversion/Frwk_ComCmdEvtLgAction.h"
#include "common/DataConversion/Frwk_ComPrfEvtLogSet.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdFrwk.h"
#include "platform/dialog/ComPtr.h"
#include "platform/dialog/ComUse.h"
#include "platform/dialog/OleDateTime.h"

#include <oleauto.h>

namespace
{

// The framework's numbers of the settings and of the command.
constexpr ULONG EventLogSettings = 113;
constexpr ULONG EventLogSettingsSubType = 2;
constexpr std::uint32_t EventLogSettingsCount = 2;

constexpr ULONG EventLogCommand = 22;
constexpr ULONG PurgeCommand = 1; // sub type
constexpr ULONG PurgeFlags = 1;
constexpr std::uint32_t PurgeCount = 3;

void SendSettings(IVdFrwkProfile& profile, std::uint32_t frequency, std::uint32_t flag)
{
    Frwk::DataTypes::ComPrfEvtLogSet array;
    array.CreateArray(EventLogSettingsCount);
    if (array.SetPrfEvtLogtSet(frequency, flag))
    {
        ULONG word = 0;
        ULONG result = 0;
        profile.SetValue(EventLogSettings, EventLogSettingsSubType, 0, 0, &word, &result, array.GetSafeArray());
        VD_TRACE(Info, L"CKestrixDlg::OnBnClickedBtnSetting Set Event Log purge frequency[%d], Flag[%d]", frequency,
                 flag);
    }
    array.DestroyArray();
}

// The day that the entry carries is the user's choice; its text may not lead back to it.
bool StartOf(const ListedDay& day, SYSTEMTIME& time)
{
    const SYSTEMTIME start = StartOfDay(day.number);
    if (COleDateTime(start).GetStatus() != COleDateTime::valid)
    {
        return GetPurgeSystemTime(day.text.c_str(), time);
    }
    time = start;
    return true;
}

void SendPurge(IVdFrwkLocalController& controller, std::uint32_t purgeType, const SYSTEMTIME& time)
{
    VD_TRACE(Info, L"Log Purge type[%d], time[%04d%02d%02d]", purgeType, time.wYear, time.wMonth, time.wDay);
    Frwk::DataTypes::ComCmdEvtLgAction array;
    if (array.CreateArray(PurgeCount) && array.SetCmdEvtLgAction({time, purgeType}))
    {
        ULONG flags = PurgeFlags;
        ULONG result = 0;
        const HRESULT status =
            controller.DoCommand(EventLogCommand, PurgeCommand, 0, 0, &flags, &result, array.GetSafeArray());
        if (FAILED(status))
        {
            VD_TRACE(Error, L"  Failed to DoCommand: [0x%08x]", status);
        }
    }
    array.DestroyArray();
}

} // namespace

bool GetPurgeSystemTime(const wchar_t* text, SYSTEMTIME& out)
{
    if (text == nullptr)
    {
        VD_TRACE(Error, L"GetPurgeSystemTime : Invalid pram:");
        return false;
    }
    DATE date = 0;
    SYSTEMTIME parsed{};
    const HRESULT status = ::VarDateFromStr(const_cast<OLECHAR*>(text), LOCALE_USER_DEFAULT, 0, &date);
    if (FAILED(status) || !::VariantTimeToSystemTime(date, &parsed))
    {
        VD_TRACE(Error, L"GetPurgeSystemTime : Failed to ParseDateTime: [0x%08x]", status);
        return false;
    }
    out = StartOfDay(DayNumberOf(parsed));
    return true;
}

// The apartment stays entered: the thread keeps one as long as the program runs.
void StorePurgeSettings(std::uint32_t frequency, std::uint32_t flag)
{
    if (const HRESULT hr = ::CoInitialize(nullptr); FAILED(hr))
    {
        VD_TRACE(Error, L"  Failed to CoInitialize: [0x%08x]", hr);
        return;
    }
    CComPtr<IVdFrwkLocalController> pLocalController;
    if (FAILED(pLocalController.CoCreateInstance(CLSID_VdFrwkLocalController)))
    {
        VD_TRACE(Error, L"pLocalController.CoCreateInstance() failed.");
        return;
    }
    CComPtr<IVdFrwkProfile> pProfile;
    const HRESULT hr = pLocalController->GetActiveProfile(pProfile.put());
    if (FAILED(hr) || !pProfile)
    {
        VD_TRACE(Error, L"pLocalController->GetActiveProfile() failed. [0x%08x]", hr);
        return;
    }
    SendSettings(*pProfile.get(), frequency, flag);
}

bool OrderPurge(std::uint32_t purgeType, const ListedDay& day)
{
    const ComUse com;
    if (FAILED(com.Status()))
    {
        VD_TRACE(Error, L"  Failed to CoInitialize: [0x%08x]", com.Status());
        return true;
    }
    CComPtr<IVdFrwkLocalController> pLocalController;
    if (const HRESULT hr = pLocalController.CoCreateInstance(CLSID_VdFrwkLocalController); FAILED(hr))
    {
        VD_TRACE(Error, L"  Failed to CoCreateInstance: [0x%08x]", hr);
        return true;
    }
    SYSTEMTIME time{};
    if (!StartOf(day, time))
    {
        VD_TRACE(Error, L"  Failed to GetPurgeSystemTime: [%s]", day.text);
        return false;
    }
    SendPurge(*pLocalController.get(), purgeType, time);
    return true;
}
