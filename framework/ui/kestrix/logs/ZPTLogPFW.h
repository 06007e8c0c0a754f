#pragma once

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

protected:
    LogRec* NewRecord(std::pmr::memory_resource* memory) const override;

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
