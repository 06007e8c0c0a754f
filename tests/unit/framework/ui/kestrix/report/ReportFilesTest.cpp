// The report's folder on the disk.

#include "framework/ui/kestrix/report/ReportCollector.h"
#include "platform/dialog/UniqueHandle.h"
#include "tests/support/StandingClock.h"
#include "tests/support/TemporaryFolder.h"

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
