// The report's folder on the disk.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "platform/dialog/UniqueHandle.h"
#include "tests/support/AllocationWatch.h"
#include "tests/support/StandingClock.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/framework/ui/kestrix/report/ReportFilesDouble.h"

#include <gtest/gtest.h>

namespace
{

class ReportFilesTest : public ::testing::Test
{
protected:
    ReportCounts Collect() const
    {
        CReportFolder files(m_folder.Path().wstring() + L"\\");
        return CReportCollector(files, 7, 1).Collect();
    }

    const StandingClock m_clock;
    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(ReportFilesTest, AFolderThatIsNotThereHasNoEvents)
{
    CReportFolder files(m_folder.File(L"nothing\\"));
    EXPECT_EQ(CReportCollector(files, 7, 1).Collect().m_nGrandTotal, 0u);
}

TEST_F(ReportFilesTest, FilesOfAllLogsAreReadWhateverTheCaseOfTheirNames)
{
    WriteUtf16(m_folder.File(L"20261121.VLG"), L"a\r\n");
    WriteUtf16(m_folder.File(L"20261120.vlg"), L"a\r\nb\r\n");
    WriteUtf16(m_folder.File(L"20261121.UFG"), L"a\r\n");
    WriteUtf16(m_folder.File(L"20261121.VLGX"), L"a\r\n");
    const ReportCounts counts = Collect();
    EXPECT_EQ(counts.m_nVirusTotal, 3u);
    EXPECT_EQ(counts.m_nWebTotal, 1u);
    EXPECT_EQ(counts.m_nGrandTotal, 4u);
}

TEST_F(ReportFilesTest, AFolderOnTheDiskCountsAsTheSameOneInMemory)
{
    ReportFilesDouble memory;
    memory.m_arrEntry = {{L"20261121.VLG", L"one\r\ntwo\r\n" + std::wstring(3000, L'x') + L"\r\nnext\r\nno end"},
                         {L"20261120.scg", L"||||||||||||2\r\n||||||||||||0\r\n"},
                         {L"20261119.SPG", L"||0x1||||||||||1\r\n"},
                         {.name = L"20261118.UFG", .text = {}, .isDirectory = true}};
    for (const ReportFilesDouble::Entry& entry : memory.m_arrEntry)
    {
        if (entry.isDirectory)
        {
            std::filesystem::create_directory(m_folder.File(entry.name));
        }
        else
        {
            WriteUtf16(m_folder.File(entry.name), entry.text);
        }
    }
    const ReportCounts onDisk = Collect();
    const ReportCounts inMemory = CReportCollector(memory, 7, 1).Collect();
    for (const ReportLineCounts& line : ReportLines())
    {
        EXPECT_EQ(onDisk.*line.series, inMemory.*line.series);
    }
    EXPECT_EQ(onDisk.m_nGrandTotal, 7u);
}

TEST_F(ReportFilesTest, AFileThatAnotherProgramHasLockedCountsNothing)
{
    WriteUtf16(m_folder.File(L"20261121.VLG"), L"a\r\n");
    WriteUtf16(m_folder.File(L"20261120.VLG"), L"a\r\nb\r\n");
    const UniqueFile lock(
        CreateFileW(m_folder.File(L"20261121.VLG").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock);
    EXPECT_EQ(Collect().m_nVirusTotal, 2u);
}

TEST_F(ReportFilesTest, AFileThatIsBeingWrittenCountsToItsLastWholeLine)
{
    WriteUtf16(m_folder.File(L"20261121.VLG"), L"a\r\nb\r\nc");
    const UniqueFile writer(CreateFileW(m_folder.File(L"20261121.VLG").c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(Collect().m_nVirusTotal, 2u);
}

TEST_F(ReportFilesTest, ADirectoryNamedLikeALogAndADayThatDoesNotExistCountNothing)
{
    std::filesystem::create_directory(m_folder.File(L"20261121.VLG"));
    WriteUtf16(m_folder.File(L"20260230.VLG"), L"a\r\n");
    EXPECT_EQ(Collect().m_nGrandTotal, 0u);
}

TEST_F(ReportFilesTest, ALargeFileTakesNoMoreMemoryThanTheBlockOfItsReader)
{
    constexpr std::size_t Lines = 100'000;
    std::wstring text;
    for (std::size_t i = 0; i < Lines; ++i)
    {
        text += L"0|1|2|3|4|5\r\n";
    }
    WriteUtf16(m_folder.File(L"20261121.SPG"), text);
    AllocationWatch watch;
    watch.FailAbove(300'000);
    EXPECT_EQ(Collect().m_nSpywareTotal, Lines);
}

TEST_F(ReportFilesTest, WithoutMemoryForThatBlockAFileCountsNothing)
{
    WriteUtf16(m_folder.File(L"20261121.VLG"), L"a\r\n");
    CReportFolder files(m_folder.Path().wstring() + L"\\");
    CReportCollector collector(files, 7, 1);
    std::uint32_t count = 0;
    AllocationWatch watch;
    watch.FailAbove(100'000);
    EXPECT_FALSE(collector.ParseLogW(L"20261121.VLG", LogTypeVirus, count));
    EXPECT_EQ(count, 0u);
}
