#include "framework/ui/kestrix/logs/LogRec.h"

#include "tests/support/CountingMemory.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

TEST(LogRecTest, StartsWithIcon0AndNoFields)
{
    const LogRec record(std::pmr::new_delete_resource());
    EXPECT_EQ(record.nImage, 0u);
    EXPECT_TRUE(record.strData.empty());
}

TEST(LogRecTest, KeepsACopyOfWhatIsAppended)
{
    std::pmr::monotonic_buffer_resource memory;
    LogRec record(&memory);
    std::wstring text = L"first";
    record.Append(text);
    record.Append({});
    text.assign(L"other");
    EXPECT_EQ(record.Field(0), L"first");
    EXPECT_EQ(record.Field(1), L"");
}

TEST(LogRecTest, TakesALastingTextAsItIs)
{
    static constexpr std::wstring_view lasting = L"lasting";
    std::pmr::monotonic_buffer_resource memory;
    LogRec record(&memory);
    record.AppendLasting(lasting);
    record.Append(lasting);
    EXPECT_EQ(record.Field(0), lasting);
    EXPECT_EQ(record.Field(0).data(), lasting.data());
    EXPECT_NE(record.Field(1).data(), lasting.data());
}

TEST(LogRecTest, AFieldThatIsNotThereIsTheVectorsOutOfRangeError)
{
    std::pmr::monotonic_buffer_resource memory;
    LogRec record(&memory);
    record.Append(L"a");
    try
    {
        record.Field(1);
        FAIL() << "no error";
    }
    catch (const std::out_of_range& error)
    {
        EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
    }
}

TEST(LogRecTest, AFieldThatIsNotThereIsEmptyForThoseWhoCannotTakeTheError)
{
    std::pmr::monotonic_buffer_resource memory;
    LogRec record(&memory);
    record.Append(L"a");
    EXPECT_EQ(record.FieldOrEmpty(0), L"a");
    EXPECT_EQ(record.FieldOrEmpty(1), L"");
}

TEST(LogRecTest, TakesAllItsMemoryFromTheResource)
{
    CountingMemory upstream;
    {
        std::pmr::monotonic_buffer_resource memory(&upstream);
        LogRec record(&memory);
        record.Append(std::wstring(5000, L'x'));
        EXPECT_GE(upstream.BytesOut(), 10000u);
    }
    EXPECT_EQ(upstream.BytesOut(), 0u);
}

TEST(LogRecTest, RecordsOfOneMemoryShareTheirTexts)
{
    RecordMemory memory(std::pmr::new_delete_resource());
    LogRec* const first = MakeRecord<LogRec>(memory);
    LogRec* const second = MakeRecord<LogRec>(memory);
    first->Append(L"C:\\a.exe");
    second->AppendJoined(L"C:\\", L"a.exe");
    EXPECT_EQ(first->Field(0), L"C:\\a.exe");
    EXPECT_EQ(first->Field(0).data(), second->Field(0).data());
    EXPECT_EQ(first->Keep(L"C:\\a.exe").data(), first->Field(0).data());
}

TEST(LogRecTest, ARecordByItselfJoinsTextsToo)
{
    std::pmr::monotonic_buffer_resource memory;
    LogRec record(&memory);
    record.AppendJoined(L"17", L" entries");
    EXPECT_EQ(record.Field(0), L"17 entries");
}
