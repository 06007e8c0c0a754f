// Exports that fail: what is told, and that no file is left but the one that stood there.

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "tests/support/TraceRecorder.h"
#include "tests/support/WriteDouble.h"
#include "tests/unit/framework/ui/kestrix/logs/ExportTest.h"

#include <functional>
#include <iterator>
#include <new>
#include <string>
#include <vector>

namespace
{

using ZPTLogBaseExportFailureTest = ExportTest;

} // namespace

TEST_F(ZPTLogBaseExportFailureTest, WritingToAFullDiskGivesErrorCode10000AndTheFileIsGone)
{
    Put(L"a");
    const FullDisk full;
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportFailureTest, ADiskThatIsFullInTheMiddleOfTheRecordsGivesTheSame)
{
    for (int i = 0; i < 100; ++i)
    {
        Put(std::wstring(2000, L'x'));
    }
    const HalfWrites full;
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportFailureTest, AFullDiskIsToldByTheResultAloneWhenNobodyTakesTheCode)
{
    const FullDisk full;
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, L"", L"", nullptr));
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportFailureTest, ADiskThatTakesAPartLeavesNoFileAndTracesBoth)
{
    for (int i = 0; i < 100; ++i)
    {
        Put(std::wstring(2000, L'x'));
    }
    const TraceRecorder trace;
    {
        const FullDisk disk(200'000);
        EXPECT_FALSE(Export());
        EXPECT_EQ(disk.Room(), 0u) << "the disk was filled";
    }
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
    EXPECT_EQ(trace.Errors(), std::vector{L"Disk has no space to export file(" + m_path + L")."});
    EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), std::vector{L"DeleteFile(" + m_path + L") returned 1"});
}

TEST_F(ZPTLogBaseExportFailureTest, ADiskThatIsFullAtTheVeryEndGivesErrorCode10000AndTheFileIsGone)
{
    Put(L"a");
    ASSERT_TRUE(Export());
    const auto size = static_cast<DWORD>(ReadBytes(m_path).size());
    {
        const FullDisk disk(size);
        EXPECT_TRUE(Export()) << "exactly enough";
    }
    std::filesystem::remove(m_path);
    const FullDisk disk(size - 1);
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
}

// The new export was written over the old one, which was lost whatever went wrong.
TEST_F(ZPTLogBaseExportFailureTest, TheFileThatStoodThereSurvivesEveryFailure)
{
    Put(L"a \"quoted\" field");
    const auto fullDisk = [this]
    {
        const FullDisk disk(10);
        EXPECT_FALSE(Export());
    };
    const auto labels = [this]
    {
        m_log.m_bHeaderWorks = false;
        EXPECT_FALSE(Export());
        m_log.m_bHeaderWorks = true;
    };
    const auto exception = [this]
    {
        m_log.m_bEscapeThrows = true;
        EXPECT_THROW(Export(), std::bad_alloc);
    };
    for (const std::function<void()>& fail : {std::function<void()>(fullDisk), {labels}, {exception}})
    {
        WriteBytes(m_path, "precious");
        const TraceRecorder trace;
        fail();
        EXPECT_EQ(ReadBytes(m_path), "precious");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}), 1) << "nothing beside it";
        EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), std::vector{L"DeleteFile(" + m_path + L") returned 1"});
    }
}

TEST_F(ZPTLogBaseExportFailureTest, AFileThatSomebodyTakesMeanwhileIsAFailureWithoutErrorCode)
{
    Put(L"a");
    WriteBytes(m_path, "precious");
    UniqueFile user;
    m_log.m_atLabels = [&]
    {
        user.reset(CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(static_cast<bool>(user));
    };
    const TraceRecorder trace;
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_EQ(trace.Texts(), std::vector{L"DeleteFile(" + m_path + L") returned 1"});
    EXPECT_EQ(ReadBytes(m_path), "precious");
}

TEST_F(ZPTLogBaseExportFailureTest, AnExceptionLeavesNoFileEither)
{
    Put(L"a \"quoted\" field");
    m_log.m_bEscapeThrows = true;
    EXPECT_THROW(Export(), std::bad_alloc);
    EXPECT_FALSE(FileExists());
    EXPECT_EQ(m_nError, Untouched);
}

TEST_F(ZPTLogBaseExportFailureTest, AFileThatCannotBeMadeIsNotTraced)
{
    const TraceRecorder trace;
    EXPECT_FALSE(m_log.ExportLog(m_folder.File(L"missing\\export.csv"), LogTypeVirus, L"", L"", &m_nError));
    EXPECT_TRUE(trace.Texts().empty());
}

TEST_F(ZPTLogBaseExportFailureTest, ADeviceIsNoFile)
{
    for (const std::wstring& path : {std::wstring(L"NUL"), std::wstring(L"\\\\.\\NUL"), m_folder.File(L"NUL")})
    {
        EXPECT_FALSE(m_log.ExportLog(path, LogTypeVirus, L"", L"", &m_nError));
        EXPECT_EQ(m_nError, Untouched);
    }
}

TEST_F(ZPTLogBaseExportFailureTest, AnUnwritablePathFailsLeavesTheErrorCodeAndDeletesNothing)
{
    WriteBytes(m_path, "precious");
    const UniqueFile user(
        CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(Export()) << "somebody reads the file and lets nobody write";
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_EQ(ReadBytes(m_path), "precious");

    for (const std::wstring& path : {m_folder.File(L"missing\\export.csv"), m_folder.Path().wstring()})
    {
        EXPECT_FALSE(m_log.ExportLog(path, LogTypeVirus, L"", L"", &m_nError));
        EXPECT_EQ(m_nError, Untouched);
    }
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.Path()));
}

TEST_F(ZPTLogBaseExportFailureTest, LabelsThatCannotBeWrittenLeaveNoFileAndNoErrorCode)
{
    Put(L"a");
    m_log.m_bHeaderWorks = false;
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportFailureTest, WithoutADateTextOrAnAddressNothingIsTouched)
{
    WriteBytes(m_path, "precious");
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, nullptr, L"", &m_nError));
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, L"", nullptr, &m_nError));
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_EQ(ReadBytes(m_path), "precious");
}
