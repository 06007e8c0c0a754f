// Lines that nobody should write, as the virus log takes them.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/HostileDay.h"
#include "tests/support/LogFixture.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/VirusReference.h"

namespace
{

using ZPTLogVirHostileTest = LogFixture<CZPTLogVir>;

const std::vector<std::wstring> Actions{L"0", L"1", L"2", L"3", L"4", L"5", L"25", L"99", L"101", L"1"};
const std::vector<std::wstring> Results{L"0", L"1", L"2"};

// The actions of the proxy form and of the scan form stand one token apart.
const LineShape VirusShape{.tokens = 13,
                           .values = {{2, {L"1", L"2", L"3", L"1048576", L"1048577", L"1048579", L"1048578", L"0"}},
                                      {5, {L"0", L"1", L"2", L"3", L"4", L"50%%", L"a%Ib"}},
                                      {7, Actions},
                                      {8, Actions},
                                      {9, {L"0", L"1", L"2", L"4", L"101"}},
                                      {10, Actions},
                                      {11, Results}}};

} // namespace

TEST_F(ZPTLogVirHostileTest, AHostileDayOfTheDatabase)
{
    ExpectHostileDay(m_log, VirusReference(true), VirusShape);
}

TEST_F(ZPTLogVirHostileTest, AHostileDayOfAFile)
{
    UseFiles();
    ExpectHostileDay(m_log, VirusReference(false), VirusShape);
}
