#include "suite/samples/LogFile.h"

#include "suite/common/Failure.h"
#include "tests/unit/suite/samples/SampleFiles.h"

namespace Samples
{

namespace
{

// The text of the failure that `work` ends with; the running test fails when it doesn't or has another exit code.
template <class Work>
std::string FailureOf(Work work)
{
    try
    {
        work();
    }
    catch (const Suite::Failure& failure)
    {
        EXPECT_EQ(failure.Code(), Suite::ExitCode::WorkFailed);
        return failure.what();
    }
    ADD_FAILURE() << "no failure";
    return {};
}

} // namespace

TEST(LogFileTest, LinesAreUtf16BehindAMarkWithCarriageReturnAndLineFeed)
{
    const TemporaryFolder folder;
    LogFile file(folder.Path() / "a.log");
    file.Write(L"aЖ");
    file.Write(L"🎉");
    file.Close();
    const char expected[] = "\xFF\xFE"
                            "a\0\x16\x04\r\0\n\0"
                            "\x3C\xD8\x89\xDF\r\0\n";
    EXPECT_EQ(ReadBytes(folder.Path() / "a.log"), std::string(expected, sizeof expected));
}

TEST(LogFileTest, AFileWithoutLinesIsTheMarkAlone)
{
    const TemporaryFolder folder;
    LogFile(folder.Path() / "a.log").Close();
    EXPECT_EQ(ReadBytes(folder.Path() / "a.log"), "\xFF\xFE");
}

TEST(LogFileTest, AnOldFileIsReplacedWhole)
{
    const TemporaryFolder folder;
    for (const int lines : {9, 1})
    {
        LogFile file(folder.Path() / "a.log");
        for (int i = 0; i < lines; ++i)
        {
            file.Write(L"line");
        }
        file.Close();
    }
    EXPECT_EQ(ReadUtf16(folder.File(L"a.log")), L"line\r\n");
}

TEST(LogFileTest, MoreThanABufferIsWrittenWithoutALoss)
{
    const TemporaryFolder folder;
    const std::wstring text(1000, L'x');
    LogFile file(folder.Path() / "a.log");
    for (int i = 0; i < 1200; ++i)
    {
        file.Write(text);
    }
    file.Close();
    EXPECT_EQ(std::filesystem::file_size(folder.Path() / "a.log"), 2u + 1200u * 1002u * 2u);
}

TEST(LogFileTest, AMissingFolderIsToldWithThePathAndARemedy)
{
    const TemporaryFolder folder;
    const std::string text = FailureOf([&] { LogFile(folder.Path() / "no" / "a.log"); });
    EXPECT_NE(text.find("a.log"), std::string::npos) << text;
    EXPECT_NE(text.find("Check that its folder exists"), std::string::npos) << text;
}

TEST(LogFileTest, AFullDiskIsToldWithARemedy)
{
    // The device that refuses every byte for want of space.
    const std::filesystem::path full = L"\\\\?\\unix\\dev\\full";
    LogFile file(full);
    file.Write(L"line");
    const std::string text = FailureOf([&] { file.Close(); });
    EXPECT_NE(text.find("the disk is full"), std::string::npos) << text;
    EXPECT_NE(text.find("free some space"), std::string::npos) << text;
}

} // namespace Samples
