#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/CountingMemory.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

constexpr std::size_t FieldCount = 8;

std::wstring VirusLine(std::size_t number)
{
    return L"x|103015|1048576|x|0|0|name " + std::to_wstring(number) + L"|C:\\a.exe|1|1|0|0|detail";
}

class ZPTLogBaseMemoryTest : public ::testing::Test
{
protected:
    const LanguageFile m_language;
    CountingMemory m_memory;
};

} // namespace

TEST_F(ZPTLogBaseMemoryTest, ClearLogGivesAllMemoryOfTheRecordsBack)
{
    CZPTLogVir log(&m_memory);
    const std::size_t before = m_memory.BytesOut();
    for (std::size_t round = 0; round < 3; ++round)
    {
        for (std::size_t i = 0; i < 1000; ++i)
        {
            ASSERT_TRUE(log.PutRecode(VirusLine(i), CZPTLogBase::AnyLine));
        }
        EXPECT_GT(m_memory.BytesOut(), before + 1000 * sizeof(LogRec));
        log.ClearLog();
        EXPECT_EQ(m_memory.BytesOut(), before);
    }
}

TEST_F(ZPTLogBaseMemoryTest, TheEndOfTheLogGivesAllMemoryBack)
{
    {
        CZPTLogVir log(&m_memory);
        ASSERT_TRUE(log.PutRecode(VirusLine(0), CZPTLogBase::AnyLine));
        EXPECT_GT(m_memory.BlocksOut(), 0u);
    }
    EXPECT_EQ(m_memory.BlocksOut(), 0u);
    EXPECT_EQ(m_memory.BytesOut(), 0u);
}

// Whatever allocation fails, of a record itself, of its fields or of the list of records.
TEST_F(ZPTLogBaseMemoryTest, WhenMemoryRunsOutTheRecordIsRefusedAndTheEarlierOnesStay)
{
    const MessageBoxRecorder boxes;
    constexpr std::size_t lines = 600;
    std::size_t failures = 0;
    for (std::size_t allocations = 0;; ++allocations)
    {
        CountingMemory memory;
        memory.FailAfter(allocations);
        CZPTLogVir log(&memory);
        std::size_t put = 0;
        while (put < lines && log.PutRecode(VirusLine(put), CZPTLogBase::AnyLine))
        {
            ++put;
        }
        ASSERT_EQ(log.GetLogCount(), put);
        for (std::size_t i = 0; i < put; ++i)
        {
            ASSERT_EQ(log.GetLogRecord(i)->strData.size(), FieldCount);
            ASSERT_EQ(log.GetLogText(i, 3), L"name " + std::to_wstring(i));
        }
        if (!memory.HasFailed())
        {
            break;
        }
        ASSERT_LT(put, lines) << "a failed allocation went unnoticed";
        ++failures;

        memory.NeverFail();
        ASSERT_TRUE(log.PutRecode(VirusLine(put), CZPTLogBase::AnyLine)) << "there is memory again";
        ASSERT_EQ(log.GetLogText(put, 3), L"name " + std::to_wstring(put));
    }
    EXPECT_GE(failures, 10u);
}

TEST_F(ZPTLogBaseMemoryTest, ARecordThatCannotBeKeptIsToldInABoxWithTheWarningIcon)
{
    const MessageBoxRecorder boxes;
    for (std::size_t allocations = 0; allocations < 2; ++allocations)
    {
        m_memory.FailAfter(allocations);
        CZPTLogVir log(&m_memory);
        EXPECT_FALSE(log.PutRecode(VirusLine(0), CZPTLogBase::AnyLine)) << allocations;
    }
    // The first failed to make the record itself, which is told to nobody but the caller.
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].text, Text(313));
    EXPECT_EQ(boxes.Boxes()[0].caption, Text(318));
    EXPECT_EQ(boxes.Boxes()[0].flags, 48u);
}
