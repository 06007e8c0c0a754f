#pragma once

#include "framework/ui/kestrix/logs/FirewallRules.h"
#include "framework/ui/kestrix/logs/FirewallSelection.h"
#include "framework/ui/kestrix/logs/PFWOutput.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include <optional>

// The firewall log: when, on which protocol, between which ends and for which program something was tried, and what
// came of it.
class CZPTLogPFW : public CZPTLogBase
{
public:
    explicit CZPTLogPFW(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

    // Takes the address that stands in place of "LIP" in the records to come; an empty one leaves them as they are.
    void SetLocalAddress(std::wstring address) override;

    // Shows the record and keeps it as the selection until the next one is shown.
    void SetLogInfo(LogRec* record) override;

    // Allows the program of the selection in the active profile; the thread waits for the service, and its calls come
    // in meanwhile. Nothing happens without a page.
    void AddAllowRule() override;

    // Whether a rule of the active profile blocks the selection; false without a page.
    bool IsBlockRuleActive() const override;

protected:
    LogRec* NewRecord(RecordMemory& memory) const override;

    // 0 for a selection that is null or names no program; else not 0, whether or not the profile has changed.
    static int RemoveSelectedPfwRuleAndAddAllowRule(const FirewallSelection* selection);

    // The number of rules that block the selection; 0 also when they cannot be read.
    static std::uint32_t IsBlockEnabled(const FirewallSelection& selection);

    static bool MatchRuleType(std::uint16_t nRuleType, std::uint32_t nEvtDirection)
    {
        return ::MatchRuleType(nRuleType, nEvtDirection);
    }

    static bool GenerateAllowRuleForApplication(FwRuleList& oldList, FwRuleList& newList, const std::wstring& path,
                                                const FirewallSelection& selection)
    {
        return ::GenerateAllowRuleForApplication(oldList, newList, path, selection);
    }

    // Reads all rules of the active profile in place of those of the list.
    static bool QueryPfwRules(FwRuleList& list);

    // Replaces the rules of the active profile, whatever it has meanwhile. False also for an empty list.
    static bool StorePfwRules(const FwRuleList& list);

    std::wstring m_strLocalAddress;
    std::optional<CPFWOutput> m_pOutput; // of the record being parsed; none between records
    FirewallSelection m_Selection;

private:
    static int CALLBACK CompareFuncUp(LPARAM first, LPARAM second, LPARAM column);
    static int CALLBACK CompareFuncDn(LPARAM first, LPARAM second, LPARAM column);

    void SetDirectionKind(std::wstring_view token, LogRec& record);
    void SetLocal(std::wstring_view token, LogRec& record);
    void SetRemote(std::wstring_view token, LogRec& record);
    void SetPort(std::wstring_view token, LogRec& record);
    void SetMessage(std::wstring_view token, LogRec& record);
    void Select(const LogRec& record);
    bool CanAllow(const LogRec& record) const;
};
