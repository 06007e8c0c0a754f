// The firewall log's part with the rules of the active profile: each operation reads them all, decides, and writes them
// all back. Failures are traced alone.

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdFrwk.h"
#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "platform/dialog/ComPtr.h"
#include "platform/dialog/ComUse.h"

namespace
{

using Frwk::DataTypes::ComPrfFwRules;

// The framework's numbers of the list of rules.
constexpr ULONG RulesType = 48;
constexpr ULONG RulesSubType = 5;

// Has the operation work with the active profile. False when it fails, and when there is no profile, which the text
// traces with the code.
template <class Operation>
bool WithActiveProfile(const wchar_t* noProfile, Operation operation)
{
    const ComUse com;
    CComPtr<IVdFrwkLocalController> controller;
    if (FAILED(controller.CoCreateInstance(CLSID_VdFrwkLocalController)))
    {
        return false;
    }
    CComPtr<IVdFrwkProfile> profile;
    const HRESULT hr = controller->GetActiveProfile(profile.put());
    if (FAILED(hr) || !profile)
    {
        VD_TRACE(Error, noProfile, hr);
        return false;
    }
    return operation(*profile.get());
}

// What cannot be read of the answer is missing in the list.
bool ReadRules(IVdFrwkProfile& profile, FwRuleList& list)
{
    ComPrfFwRules array;
    ULONG word = 0;
    const HRESULT hr = profile.QueryValue(RulesType, RulesSubType, 0, 0, &word, array.GetSafeArrayAddress());
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"[CZPTLogPFW::QueryPfwRules] err Code: (%0X08)", hr);
    }
    else
    {
        array.GetPrfFwRules(list);
    }
    array.DestroyArray();
    return SUCCEEDED(hr);
}

bool WriteRules(IVdFrwkProfile& profile, const FwRuleList& list)
{
    ComPrfFwRules array;
    if (list.empty() || !array.CreateArray(static_cast<std::uint32_t>(list.size())))
    {
        VD_TRACE(Error, L"[CZPTLogPFW::StorePfwRules] cComPrfFwRules create failed");
        return false;
    }
    array.SetPrfFwRules(list);
    ULONG word = 0;
    ULONG result = 0;
    const HRESULT hr = profile.SetValue(RulesType, RulesSubType, 0, 0, &word, &result, array.GetSafeArray());
    if (FAILED(hr))
    {
        VD_TRACE(Error, L"[CZPTLogPFW::StorePfwRules] Failed, error code = [%0X08]", hr);
    }
    array.DestroyArray();
    return SUCCEEDED(hr);
}

} // namespace

// The selection is copied: the page may show another record while the service is asked.
void CZPTLogPFW::AddAllowRule()
{
    if (m_pInfoDlg != nullptr)
    {
        const FirewallSelection selection = m_Selection;
        RemoveSelectedPfwRuleAndAddAllowRule(&selection);
    }
}

bool CZPTLogPFW::IsBlockRuleActive() const
{
    return m_pInfoDlg != nullptr && IsBlockEnabled(m_Selection) != 0;
}

int CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule(const FirewallSelection* selection)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule");
    if (selection == nullptr)
    {
        return 0;
    }
    VD_TRACE(Flow, L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Checking app [%s]", selection->szAppPath);
    if (selection->szAppPath.empty())
    {
        return 0;
    }
    FwRuleList rules;
    if (QueryPfwRules(rules))
    {
        if (const auto changed = AllowSelected(std::move(rules), *selection))
        {
            StorePfwRules(*changed);
        }
    }
    VD_TRACE(Flow, L"[Leave] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule");
    return 1;
}

std::uint32_t CZPTLogPFW::IsBlockEnabled(const FirewallSelection& selection)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::IsBlockEnabled");
    if (selection.szAppPath.empty())
    {
        return 0;
    }
    VD_TRACE(Flow, L"***XXDEBUG Path [%s]", selection.szAppPath);
    VD_TRACE(Flow, L"***XXDEBUG Prot [%d]", selection.nProtocol);
    VD_TRACE(Flow, L"***XXDEBUG Dir  [%d]", selection.nDirection);
    FwRuleList rules;
    if (!QueryPfwRules(rules))
    {
        return 0;
    }
    const std::uint32_t count = CountBlockRules(rules, selection);
    VD_TRACE(Flow, L"[Leave] CZPTLogPFW::IsBlockEnabled [count=%d]", count);
    return count;
}

bool CZPTLogPFW::QueryPfwRules(FwRuleList& list)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::QueryPfwRules");
    const auto read = [&list](IVdFrwkProfile& profile) { return ReadRules(profile, list); };
    if (!WithActiveProfile(L"[CZPTLogPFW::QueryPfwRules] failed [%d]", read))
    {
        return false;
    }
    VD_TRACE(Flow, L"[Leave] CZPTLogPFW::QueryPfwRules");
    return true;
}

bool CZPTLogPFW::StorePfwRules(const FwRuleList& list)
{
    VD_TRACE(Flow, L"[Enter] CZPTLogPFW::StorePfwRules [%d]", static_cast<int>(list.size()));
    const auto write = [&list](IVdFrwkProfile& profile) { return WriteRules(profile, list); };
    if (!WithActiveProfile(L"[CZPTLogPFW::StorePfwRules] failed [%d]", write))
    {
        return false;
    }
    VD_TRACE(Flow, L"[Leave] CZPTLogPFW::StorePfwRules");
    return true;
}
