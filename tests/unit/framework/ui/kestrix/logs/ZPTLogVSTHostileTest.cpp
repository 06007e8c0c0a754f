// Lines that nobody should write, as the log of suspicious changes takes them.

#include "framework/ui/kestrix/logs/ZPTLogVST.h"
#include "tests/support/HostileDay.h"
#include "tests/support/LogFixture.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/SuspiciousChangeReference.h"

namespace
{

using ZPTLogVSTHostileTest = LogFixture<CZPTLogVST>;

const LineShape ChangeShape{.tokens = 14,
                            .values = {{2, {L"0x10000000", L"268435456", L"0x100000", L"0"}},
                                       {6, {L"1", L"2", L"4", L"8", L"16", L"32", L"64", L"3", L"0"}},
                                       {8, {L"50%%", L"a%Ib"}},
                                       {12, {L"0", L"1", L"2", L"3", L"4", L"9"}},
                                       {13, {L"__ZPT_SELF_PROTECT__", L"__ZPT_USER_DEFINED__", L"rules", L""}}}};

} // namespace

TEST_F(ZPTLogVSTHostileTest, AHostileDayOfTheDatabase)
{
    ExpectHostileDay(m_log, SuspiciousChangeReference(), ChangeShape);
}

TEST_F(ZPTLogVSTHostileTest, AHostileDayOfAFile)
{
    UseFiles();
    ExpectHostileDay(m_log, SuspiciousChangeReference(), ChangeShape);
}
