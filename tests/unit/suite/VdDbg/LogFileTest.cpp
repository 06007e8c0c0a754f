#include "suite/VdDbg/LogFile.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/WriteDouble.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>

using VdDbg::LogFile;

extern "C" decltype(&::FlushFileBuffers) __imp_FlushFileBuffers;
extern "C" decltype(&::GetFileInformationByHandleEx) __imp_GetFileInformationByHandleEx;

namespace
{

using Lines = std::vector<std::string>;
using Names = std::vector<std::wstring>;

class VdDbgLogFile : public ::testing::Test
{
protected:
    std::wstring Current() const { return m_name.Current(); }

    const TemporaryFolder m_folder;
    const VdDbg::LogName m_name = NameIn(m_folder.Path());
};

// Calls of the library to the system; one test at a time looks at them.
struct Calls
{
    inline static int s_nFlushes = 0;
    inline static decltype(&::GetFileInformationByHandleEx) s_information = nullptr;

    static BOOL WINAPI CountFlush(HANDLE)
    {
        ++s_nFlushes;
        return TRUE;
    }

    // Any file that holds something is said to be deleted.
    static BOOL WINAPI SayDeleted(HANDLE file, FILE_INFO_BY_HANDLE_CLASS kind, LPVOID buffer, DWORD size)
    {
        const BOOL result = s_information(file, kind, buffer, size);
        if (kind == FileStandardInfo)
        {
            auto& standard = *static_cast<FILE_STANDARD_INFO*>(buffer);
            standard.DeletePending = standard.EndOfFile.QuadPart > 0;
        }
        return result;
    }
};

} // namespace

TEST_F(VdDbgLogFile, LinesFollowEachOther)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Current()), "one\r\ntwo\r\n");
}

TEST_F(VdDbgLogFile, AnExistingFileIsContinued)
{
    WriteBytes(Current(), "before\r\n");
    LogFile file(m_name, false);
    SYSTEMTIME now{};
    GetLocalTime(&now);
    EXPECT_EQ(file.Append(now, "after\r\n"), 0U);
    EXPECT_EQ(LinesOf(Current()), (Lines{"before", "after"}));
}

TEST_F(VdDbgLogFile, OpenMakesTheFileAndItsFolders)
{
    const VdDbg::LogName name = NameIn(m_folder.Path() / L"a" / L"b");
    LogFile file(name, false);
    EXPECT_FALSE(std::filesystem::exists(m_folder.File(L"a")));
    EXPECT_EQ(file.Open(), 0U);
    EXPECT_EQ(ReadBytes(name.Current()), "");
}

TEST_F(VdDbgLogFile, ALineIsOneWrite)
{
    LogFile file(m_name, false);
    const std::string line(100'000, 'x');
    std::vector<DWORD> writes;
    {
        const WriteDouble count(
            [&](HANDLE file, const void* bytes, DWORD size, DWORD* written)
            {
                writes.push_back(size);
                return WriteDouble::PassOn(file, bytes, size, written);
            });
        EXPECT_EQ(file.Append(Noon(), line + "\r\n"), 0U);
    }
    EXPECT_EQ(writes, std::vector<DWORD>{100'002});
    EXPECT_EQ(LinesOf(Current()), Lines{line});
}

TEST_F(VdDbgLogFile, EachLineOfARobustFileIsFlushed)
{
    LogFile file(m_name, true);
    Calls::s_nFlushes = 0;
    const ImportPatch<decltype(&::FlushFileBuffers)> count(__imp_FlushFileBuffers, &Calls::CountFlush);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    EXPECT_EQ(Calls::s_nFlushes, 1);
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(Calls::s_nFlushes, 2);
}

TEST_F(VdDbgLogFile, TheSystemFlushesTheHandleOfARobustFile)
{
    LogFile file(m_name, true);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    EXPECT_EQ(LinesOf(Current()), Lines{"one"});
}

TEST_F(VdDbgLogFile, NoLineOfAnotherFileIsFlushed)
{
    LogFile file(m_name, false);
    Calls::s_nFlushes = 0;
    const ImportPatch<decltype(&::FlushFileBuffers)> count(__imp_FlushFileBuffers, &Calls::CountFlush);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    EXPECT_EQ(Calls::s_nFlushes, 0);
}

TEST_F(VdDbgLogFile, ALineThatFindsTheLimitReachedGoesToANewFile)
{
    LogFile file(m_name, false, 10);
    EXPECT_EQ(file.Append(Noon(), "1234567\r\n"), 0U); // 9 bytes
    EXPECT_EQ(file.Append(Noon(), "over\r\n"), 0U);
    EXPECT_EQ(FilesIn(m_folder.Path()), Names{L"Trace.log"});
    EXPECT_EQ(file.Append(Noon(), "12345678\r\n"), 0U); // 10 bytes
    EXPECT_EQ(file.Append(Noon(), "new\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(2)), (Lines{"1234567", "over"}));
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{"12345678"});
    EXPECT_EQ(LinesOf(Current()), Lines{"new"});
}

TEST_F(VdDbgLogFile, ALineLongerThanTheLimitIsWrittenWhole)
{
    LogFile file(m_name, false, 10);
    const std::string line(1000, 'x');
    EXPECT_EQ(file.Append(Noon(), line + "\r\n"), 0U);
    EXPECT_EQ(file.Append(Noon(), "next\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{line});
    EXPECT_EQ(LinesOf(Current()), Lines{"next"});
}

TEST_F(VdDbgLogFile, TheLimitIsTenMegabytes)
{
    LogFile file(m_name, false);
    const std::string most(10 * 1024 * 1024 - 3, 'x');
    EXPECT_EQ(file.Append(Noon(), most + "\r\n"), 0U); // one byte less than the limit
    EXPECT_EQ(file.Append(Noon(), "\r\n"), 0U);
    EXPECT_EQ(FilesIn(m_folder.Path()), Names{L"Trace.log"});
    EXPECT_EQ(file.Append(Noon(), "new\r\n"), 0U);
    EXPECT_EQ(std::filesystem::file_size(m_name.Old(1)), 10U * 1024 * 1024 + 1);
    EXPECT_EQ(LinesOf(Current()), Lines{"new"});
}

TEST_F(VdDbgLogFile, FiveOldFilesAreKept)
{
    LogFile file(m_name, false, 1);
    for (int i = 1; i <= 8; ++i)
    {
        EXPECT_EQ(file.Append(Noon(), std::to_string(i) + "\r\n"), 0U);
    }
    EXPECT_EQ(FilesIn(m_folder.Path()),
              (Names{L"Trace.1.log", L"Trace.2.log", L"Trace.3.log", L"Trace.4.log", L"Trace.5.log", L"Trace.log"}));
    EXPECT_EQ(LinesOf(Current()), Lines{"8"});
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{"7"});
    EXPECT_EQ(LinesOf(m_name.Old(5)), Lines{"3"});
}

TEST_F(VdDbgLogFile, AnObjectWhoseFileWasRetiredByAnotherGoesOnInTheCurrentOne)
{
    LogFile first(m_name, false, 10);
    LogFile second(m_name, false, 10);
    EXPECT_EQ(first.Append(Noon(), "1234567890\r\n"), 0U);
    EXPECT_EQ(second.Append(Noon(), "a\r\n"), 0U);
    EXPECT_EQ(first.Append(Noon(), "b\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_name.Old(1)), Lines{"1234567890"});
    EXPECT_EQ(LinesOf(Current()), (Lines{"a", "b"}));
    EXPECT_FALSE(std::filesystem::exists(m_name.Old(2)));
}

// Not every system under the tests lets a deleted file go while it is open: the file is moved away, and the system's
// answer says what it says elsewhere.
TEST_F(VdDbgLogFile, AFileThatSomebodyDeletedIsMadeAnew)
{
    LogFile file(m_name, false);
    EXPECT_EQ(file.Append(Noon(), "one\r\n"), 0U);
    std::filesystem::rename(Current(), m_folder.File(L"gone"));
    Calls::s_information = __imp_GetFileInformationByHandleEx;
    const ImportPatch<decltype(&::GetFileInformationByHandleEx)> patch(__imp_GetFileInformationByHandleEx,
                                                                       &Calls::SayDeleted);
    EXPECT_EQ(file.Append(Noon(), "two\r\n"), 0U);
    EXPECT_EQ(LinesOf(m_folder.File(L"gone")), Lines{"one"});
    EXPECT_EQ(LinesOf(Current()), Lines{"two"});
}

TEST_F(VdDbgLogFile, EightThreadsThroughOneObjectAndEightThroughOthersLoseNoLine)
{
    constexpr int PerThread = 300;
    constexpr int PerKind = 8;
    LogFile shared(m_name, false, 20'000);
    const auto write = [](LogFile& file, int thread)
    {
        for (int i = 0; i < PerThread; ++i)
        {
            EXPECT_EQ(file.Append(Noon(), std::to_string(thread) + " " + std::to_string(i) + "\r\n"), 0U);
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < PerKind; ++thread)
    {
        threads.emplace_back([&, thread] { write(shared, thread); });
        threads.emplace_back(
            [&, thread]
            {
                LogFile own(m_name, false, 20'000);
                write(own, PerKind + thread);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    std::map<std::string, int> seen;
    for (const std::wstring& name : FilesIn(m_folder.Path()))
    {
        for (const std::string& line : LinesOf(m_folder.File(name)))
        {
            ++seen[line];
        }
    }
    EXPECT_TRUE(std::filesystem::exists(m_name.Old(1)));
    EXPECT_EQ(seen.size(), static_cast<std::size_t>(PerThread * PerKind * 2));
    for (const auto& [line, count] : seen)
    {
        EXPECT_EQ(count, 1) << line;
    }
}
