// Lines that nobody should write, as the spyware log takes them.

#include "framework/ui/kestrix/logs/ZPTLogSpyware.h"
#include "tests/support/HostileDay.h"
#include "tests/support/LogFixture.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/SpywareReference.h"

namespace
{

using ZPTLogSpywareHostileTest = LogFixture<CZPTLogSpyware>;

// The longest form is that of the behavior monitor.
const LineShape SpywareShape{
    .tokens = 16,
    .values = {{2, {L"1", L"2", L"3", L"0x10000000", L"268435456", L"0x100000", L"1048577", L"4", L"0"}},
               {4, {L"1", L"2", L"4", L"8", L"16", L"32", L"64", L"3", L"name"}},
               {7, {L"0", L"3", L"4", L"101", L"201", L"5"}},
               {8, {L"0", L"1", L"2"}},
               {9, {L"0", L"1", L"2", L"3"}},
               {11, {L"", L"hosts", L"100%s"}},
               {12, {L"0", L"1", L"2", L"3", L"4"}}}};

} // namespace

TEST_F(ZPTLogSpywareHostileTest, AHostileDayOfTheDatabase)
{
    ExpectHostileDay(m_log, SpywareReference(true), SpywareShape);
}

TEST_F(ZPTLogSpywareHostileTest, AHostileDayOfAFile)
{
    UseFiles();
    ExpectHostileDay(m_log, SpywareReference(false), SpywareShape);
}
