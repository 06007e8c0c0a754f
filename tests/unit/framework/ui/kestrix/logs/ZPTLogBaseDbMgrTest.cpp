#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "platform/dialog/OleDateTime.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/ProviderDouble.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace
{

using Bytes = std::vector<std::uint8_t>;

// Sixteen-bit words, low byte first.
Bytes Words(std::initializer_list<std::uint16_t> words)
{
    Bytes bytes;
    for (const std::uint16_t word : words)
    {
        bytes.push_back(static_cast<std::uint8_t>(word));
        bytes.push_back(static_cast<std::uint8_t>(word >> 8));
    }
    return bytes;
}

class ZPTLogBaseDbMgrTest : public ::testing::Test
{
protected:
    ZPTLogBaseDbMgrTest() { m_log.m_pIDBManagerProvider = &m_provider; }

    bool Read(ProviderAnswer& answer)
    {
        m_provider.m_answer = answer.Address();
        return m_log.ReadLogDBMgr(m_date);
    }

    Bytes RequestFor(const COleDateTime& date)
    {
        m_log.ReadLogDBMgr(date);
        return m_provider.m_arrQuery.back().request;
    }

    const LanguageFile m_language;
    ProviderDouble m_provider;
    PlainLog m_log{0, 2, LogTypeFirewall}; // a line needs two tokens
    const COleDateTime m_date{2008, 12, 31, 13, 14, 15};
};

const Bytes FirstDayOfYear1 = Words({1, 1, 0, 1, 0, 0, 0, 0, 1, 1, 0, 1, 23, 59, 59, 0});

} // namespace

TEST_F(ZPTLogBaseDbMgrTest, WithoutAProviderItFails)
{
    m_log.m_pIDBManagerProvider = nullptr;
    EXPECT_FALSE(m_log.ReadLogDBMgr(m_date));
    EXPECT_TRUE(m_provider.m_arrQuery.empty());
}

TEST_F(ZPTLogBaseDbMgrTest, AsksOnceWithTheArgumentsOfTheWireForm)
{
    ProviderAnswer answer;
    EXPECT_TRUE(Read(answer));
    ASSERT_EQ(m_provider.m_arrQuery.size(), 1u);
    const ProviderDouble::Query& query = m_provider.m_arrQuery[0];
    EXPECT_EQ(query.kind, 2u);
    EXPECT_EQ(query.query, 1u);
    EXPECT_EQ(query.logSubType, 6u);
    EXPECT_EQ(query.resultBefore, nullptr);
    EXPECT_EQ(query.flags, 0u);
}

TEST_F(ZPTLogBaseDbMgrTest, TheRequestIsTheDayFromItsFirstToItsLastSecondWithoutDayOfWeekAndMilliseconds)
{
    EXPECT_EQ(RequestFor(m_date), Words({2008, 12, 0, 31, 0, 0, 0, 0, 2008, 12, 0, 31, 23, 59, 59, 0}));
}

TEST_F(ZPTLogBaseDbMgrTest, AnInvalidDateOrNoneAsksForTheFirstDayOfYear1)
{
    EXPECT_EQ(RequestFor(COleDateTime()), FirstDayOfYear1);
    EXPECT_EQ(RequestFor(COleDateTime(2009, 2, 30, 0, 0, 0)), FirstDayOfYear1);
}

TEST_F(ZPTLogBaseDbMgrTest, ALogWithoutAQuerySubTypeFailsWithoutAsking)
{
    PlainLog log(0, 2, LogTypeNone);
    log.m_pIDBManagerProvider = &m_provider;
    EXPECT_FALSE(log.ReadLogDBMgr(m_date));
    EXPECT_TRUE(m_provider.m_arrQuery.empty());
}

TEST_F(ZPTLogBaseDbMgrTest, ReadsTextsThatLieInsideTheEntryAndElsewhere)
{
    ProviderAnswer answer;
    answer.Add(L"a|12345");
    answer.Add(L"b|123456");
    answer.AddElsewhere(L"c|1", 8);
    answer.AddElsewhere(L"d|" + std::wstring(3000, L'x'), 4095);
    ASSERT_TRUE(Read(answer));
    ASSERT_EQ(m_log.GetLogCount(), 4u);
    EXPECT_EQ(m_log.GetLogText(0, 1), L"12345");
    EXPECT_EQ(m_log.GetLogText(1, 1), L"123456");
    EXPECT_EQ(m_log.GetLogText(2, 0), L"c");
    EXPECT_EQ(m_log.GetLogText(2, 1), L"1");
    EXPECT_EQ(m_log.GetLogText(3, 1), std::wstring(3000, L'x'));
}

TEST_F(ZPTLogBaseDbMgrTest, RecordsDoNotDependOnTheProvidersMemory)
{
    {
        ProviderAnswer answer;
        answer.Add(L"far away|text of some length");
        ASSERT_TRUE(Read(answer));
    }
    EXPECT_EQ(m_log.GetLogText(0, 1), L"text of some length");
}

TEST_F(ZPTLogBaseDbMgrTest, ALineEndInAnEntryIsCut)
{
    ProviderAnswer answer;
    answer.Add(L"a|b\r\n");
    ASSERT_TRUE(Read(answer));
    EXPECT_EQ(m_log.GetLogText(0, 1), L"b");
}

TEST_F(ZPTLogBaseDbMgrTest, ANullVectorFails)
{
    m_provider.m_answer = nullptr;
    EXPECT_FALSE(m_log.ReadLogDBMgr(m_date));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseDbMgrTest, AnEmptyVectorSucceedsWithoutRecords)
{
    ProviderAnswer answer;
    EXPECT_TRUE(Read(answer));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseDbMgrTest, ANegativeResultFailsEvenWithAnAnswer)
{
    ProviderAnswer answer;
    answer.Add(L"a|1");
    m_provider.m_status = E_FAIL;
    EXPECT_FALSE(Read(answer));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseDbMgrTest, AnyResultThatIsNotNegativeIsASuccess)
{
    for (const HRESULT status : {S_OK, S_FALSE, static_cast<HRESULT>(0x00040200), static_cast<HRESULT>(0x7FFFFFFF)})
    {
        m_log.ClearLog();
        ProviderAnswer answer;
        answer.Add(L"a|1");
        m_provider.m_status = status;
        EXPECT_TRUE(Read(answer)) << status;
        EXPECT_EQ(m_log.GetLogCount(), 1u) << status;
    }
}

TEST_F(ZPTLogBaseDbMgrTest, AnInvalidThirdRecordOfFiveFailsAndKeepsTheTwoBeforeIt)
{
    ProviderAnswer answer;
    for (const wchar_t* const line : {L"a|1", L"b|2", L"invalid", L"d|4", L"e|5"})
    {
        answer.Add(line);
    }
    EXPECT_FALSE(Read(answer));
    ASSERT_EQ(m_log.GetLogCount(), 2u);
    EXPECT_EQ(m_log.GetLogText(1, 0), L"b");
}

TEST_F(ZPTLogBaseDbMgrTest, AnEmptyLineOfTheProviderIsAnInvalidRecord)
{
    ProviderAnswer answer;
    answer.Add(L"");
    EXPECT_FALSE(Read(answer));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}
