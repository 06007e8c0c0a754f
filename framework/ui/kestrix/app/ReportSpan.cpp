#include "framework/ui/kestrix/app/ReportSpan.h"

#include "common/DataConversion/Frwk_ComPrfReportSet.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdFrwk.h"
#include "platform/dialog/ComPtr.h"

namespace
{

constexpr std::uint32_t ShortestReportSpan = 3;
constexpr std::uint32_t LongestReportSpan = 30;

// The framework's numbers of the report settings.
constexpr ULONG ReportSettings = 112;
constexpr ULONG ReportSettingsSubType = 1;
constexpr std::uint32_t ReportSettingsCount = 3;

Frwk::DataTypes::PrfReportSet QueryReportSettings(IVdFrwkProfile& profile)
{
    Frwk::DataTypes::ComPrfReportSet array;
    array.CreateArray(ReportSettingsCount);
    ULONG word = 0;
    // A failure leaves no settings in the array, which is all that counts.
    profile.QueryValue(ReportSettings, ReportSettingsSubType, 0, 0, &word, array.GetSafeArrayAddress());
    Frwk::DataTypes::PrfReportSet settings;
    array.GetPrfReportSet(settings);
    array.DestroyArray();
    return settings;
}

} // namespace

std::uint32_t ReportSpanOf(std::uint32_t setting) noexcept
{
    const bool fits = setting >= ShortestReportSpan && setting <= LongestReportSpan;
    return fits ? setting : DefaultReportSpan;
}

std::uint32_t QueryReportSpan()
{
    VD_TRACE(Flow, L"[Enter] CKestrixApp::GetReportSpan()...");
    CComPtr<IVdFrwkLocalController> pLocalController;
    if (FAILED(pLocalController.CoCreateInstance(CLSID_VdFrwkLocalController)))
    {
        VD_TRACE(Error, L"pLocalController.CoCreateInstance() failed.");
        return DefaultReportSpan;
    }
    CComPtr<IVdFrwkProfile> pProfile;
    const HRESULT hr = pLocalController->GetActiveProfile(pProfile.put());
    if (FAILED(hr) || !pProfile)
    {
        VD_TRACE(Error, L"pLocalController->GetActiveProfile() failed.");
        return DefaultReportSpan;
    }
    const auto settings = QueryReportSettings(*pProfile.get());
    pProfile.reset();
    pLocalController.reset();
    VD_TRACE(Info, L"pProfile->QueryValue() Fre[%d], AlertFlag[%d]", settings.frequency, settings.alertFlag);
    VD_TRACE(Flow, L"[Leave] CKestrixApp::GetReportSpan()...");
    return ReportSpanOf(settings.frequency);
}
