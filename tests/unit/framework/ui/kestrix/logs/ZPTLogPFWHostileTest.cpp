// Lines that nobody should write, as the firewall log takes them.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "tests/support/HostileDay.h"
#include "tests/support/LogFixture.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/FirewallReference.h"

namespace
{

using ZPTLogPFWHostileTest = LogFixture<CZPTLogPFW>;

const LineShape FirewallShape{
    .tokens = 16,
    .values = {{0, {L"103015", L"000000", L"235959"}},
               {1, {L"3", L"4", L"5", L"6", L"7", L"8", L"10", L"15", L"18"}},
               {2, {L"0", L"1", L"6", L"7", L"10", L"11"}},
               {3, {L"1", L"2"}},
               {5, {L"1", L"2", L"6", L"17", L"58", L"47"}},
               {6, {L"0", L"1", L"2", L"7"}},
               {7, {L"LIP", L"192.0.2.10", L"2001:db8::10", L""}},
               {8, {L"80", L"49152", L""}},
               {9, {L"192.0.2.20", L"::1", L"LIP", L""}},
               {10, {L"443", L"0", L""}},
               {11, {L"0", L"3", L"18", L"19", L"128", L"129", L"130", L"131", L"153", L"154", L""}},
               {12, {L"Many ports", L""}},
               {15, {L"message", L""}}}};

} // namespace

TEST_F(ZPTLogPFWHostileTest, AHostileDayOfTheDatabase)
{
    m_log.SetLocalAddress(L"192.0.2.77");
    ExpectHostileDay(m_log, FirewallReference(L"192.0.2.77"), FirewallShape);
}

TEST_F(ZPTLogPFWHostileTest, AHostileDayOfAFileWithoutALocalAddress)
{
    UseFiles();
    ExpectHostileDay(m_log, FirewallReference(L""), FirewallShape);
}
