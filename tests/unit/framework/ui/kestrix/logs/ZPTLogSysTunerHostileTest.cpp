// Lines that nobody should write, as the log of the system tuner takes them.

#include "framework/ui/kestrix/logs/ZPTLogSysTuner.h"
#include "tests/support/HostileDay.h"
#include "tests/support/LogFixture.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/TunerReference.h"

namespace
{

using ZPTLogSysTunerHostileTest = LogFixture<CZPTLogSysTuner>;

const LineShape TunerShape{.tokens = 7,
                           .values = {{2, {L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"-1"}},
                                      {3, {L"0", L"1", L"2", L"3", L"4", L"5"}},
                                      {4, {L"0", L"1"}},
                                      {5, {L"", L"--", L"Pinecone Browser"}},
                                      {6, {L"0", L"1", L"2", L"48", L"2026/11/20", L"2026/02/30", L"2026/1/2"}}}};

} // namespace

TEST_F(ZPTLogSysTunerHostileTest, AHostileDayOfTheDatabase)
{
    ExpectHostileDay(m_log, TunerReference(), TunerShape);
}

TEST_F(ZPTLogSysTunerHostileTest, AHostileDayOfAFile)
{
    UseFiles();
    ExpectHostileDay(m_log, TunerReference(), TunerShape);
}
