#pragma once

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "tests/support/FirewallService.h"
#include "tests/support/LogFixture.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/FirewallRuleKit.h"

#include <string>
#include <vector>

using Texts = std::vector<std::wstring>;

class OpenRulesLog : public CZPTLogPFW
{
public:
    using CZPTLogPFW::IsBlockEnabled;
    using CZPTLogPFW::m_Selection;
    using CZPTLogPFW::QueryPfwRules;
    using CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule;
    using CZPTLogPFW::StorePfwRules;
};

// A log that shows a blocked event of a program.
class FirewallRulesLogTest : public LogFixture<OpenRulesLog>
{
protected:
    FirewallRulesLogTest() { ShowProgram(L"C:\\a.exe"); }

    ~FirewallRulesLogTest() override { EXPECT_EQ(m_service.Controller().References(), 0); }

    // Whether the button is there for an event of the program.
    bool ShowProgram(const std::wstring& program)
    {
        Show(L"103015|4|1|2|x|6|2|192.0.2.10|49152|192.0.2.20|443||e|" + program + L"|rule|message");
        return m_pane.AllowRule() == true;
    }

    // What the press of the button asks the service.
    Texts Calls()
    {
        m_service.Controller().m_calls.clear();
        m_log.AddAllowRule();
        return m_service.Controller().m_calls;
    }

    // What it traces, of all levels.
    Texts Traces()
    {
        const TraceRecorder trace;
        m_log.AddAllowRule();
        return trace.Texts();
    }

    FirewallService m_service;
};

inline const Texts ReadAlone{L"CreateInstance", L"GetActiveProfile", L"QueryValue 48 5 0 0 0 of 0"};

inline constexpr wchar_t Enter[] = L"[Enter] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule";
inline constexpr wchar_t Checking[] = L"[CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule] Checking app [C:\\a.exe]";
inline constexpr wchar_t Leave[] = L"[Leave] CZPTLogPFW::RemoveSelectedPfwRuleAndAddAllowRule";
inline constexpr wchar_t EnterQuery[] = L"[Enter] CZPTLogPFW::QueryPfwRules";
inline constexpr wchar_t LeaveQuery[] = L"[Leave] CZPTLogPFW::QueryPfwRules";
inline constexpr wchar_t LeaveStore[] = L"[Leave] CZPTLogPFW::StorePfwRules";

inline Texts operator+(Texts first, const Texts& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
