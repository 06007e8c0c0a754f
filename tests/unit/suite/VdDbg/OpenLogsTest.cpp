#include "suite/VdDbg/OpenLogs.h"

#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using VdDbg::OpenLogs;

namespace
{

constexpr std::uint32_t InvalidParameter = ERROR_INVALID_PARAMETER;
constexpr std::uint32_t InvalidHandle = ERROR_INVALID_HANDLE;

class VdDbgOpenLogs : public ::testing::Test
{
protected:
    DebugLogConfig Config(const std::wstring& file = L"Trace") const
    {
        return ConfigOf(
            {.folder = m_folder.Path().wstring(), .prefix = L"", .file = file, .extension = L"log", .module = L""});
    }

    void* Open(const std::wstring& file = L"Trace")
    {
        const DebugLogConfig config = Config(file);
        void* handle = nullptr;
        EXPECT_EQ(m_logs.Open(&handle, &config), 0U);
        EXPECT_NE(handle, nullptr);
        return handle;
    }

    std::wstring Path(const std::wstring& file = L"Trace") const { return m_folder.File(file + L".log"); }

    const TemporaryFolder m_folder;
    const SYSTEMTIME m_time = Noon();
    OpenLogs m_logs;
};

} // namespace

TEST_F(VdDbgOpenLogs, EachHandleWritesToItsOwnLog)
{
    void* const one = Open(L"one");
    void* const two = Open(L"two");
    EXPECT_NE(one, two);
    EXPECT_EQ(m_logs.Trace(one, &m_time, L"1\r\n"), 0U);
    EXPECT_EQ(m_logs.Trace(two, &m_time, L"2\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Path(L"one")), "1\r\n");
    EXPECT_EQ(ReadBytes(Path(L"two")), "2\r\n");
}

TEST_F(VdDbgOpenLogs, TwoHandlesMayShareAFile)
{
    void* const one = Open();
    void* const two = Open();
    EXPECT_EQ(m_logs.Trace(one, &m_time, L"1\r\n"), 0U);
    EXPECT_EQ(m_logs.Trace(two, &m_time, L"2\r\n"), 0U);
    EXPECT_EQ(m_logs.Trace(one, &m_time, L"3\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Path()), "1\r\n2\r\n3\r\n");
}

TEST_F(VdDbgOpenLogs, CloseLetsTheFileGo)
{
    void* const handle = Open();
    EXPECT_FALSE(IsFree(Path()));
    EXPECT_EQ(m_logs.Close(handle), 0U);
    EXPECT_TRUE(IsFree(Path()));
}

TEST_F(VdDbgOpenLogs, ALogThatIsOpenedAgainIsContinued)
{
    void* const before = Open();
    EXPECT_EQ(m_logs.Trace(before, &m_time, L"1\r\n"), 0U);
    EXPECT_EQ(m_logs.Close(before), 0U);
    EXPECT_EQ(m_logs.Trace(Open(), &m_time, L"2\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Path()), "1\r\n2\r\n");
}

TEST_F(VdDbgOpenLogs, LinesAfterCloseAreRefused)
{
    void* const handle = Open();
    EXPECT_EQ(m_logs.Close(handle), 0U);
    EXPECT_EQ(m_logs.Trace(handle, &m_time, L"late\r\n"), InvalidHandle);
    EXPECT_EQ(ReadBytes(Path()), "");
}

TEST_F(VdDbgOpenLogs, AClosedHandleNeverMeansAnotherLog)
{
    void* const closed = Open(L"one");
    EXPECT_EQ(m_logs.Close(closed), 0U);
    for (int i = 0; i < 100; ++i)
    {
        void* const handle = Open(L"two");
        EXPECT_NE(handle, closed);
        EXPECT_EQ(m_logs.Close(handle), 0U);
    }
    EXPECT_EQ(m_logs.Close(closed), InvalidHandle);
}

TEST_F(VdDbgOpenLogs, HandlesOfNobodyAreRefused)
{
    Open();
    int nobody = 0;
    for (void* const handle : {static_cast<void*>(nullptr), static_cast<void*>(&nobody), static_cast<void*>(this),
                               reinterpret_cast<void*>(~std::uintptr_t{0})})
    {
        EXPECT_EQ(m_logs.Trace(handle, &m_time, L"line\r\n"), InvalidHandle);
        EXPECT_EQ(m_logs.Close(handle), InvalidHandle);
    }
}

TEST_F(VdDbgOpenLogs, MissingArgumentsAreRefused)
{
    const DebugLogConfig config = Config();
    void* handle = this;
    EXPECT_EQ(m_logs.Open(nullptr, &config), InvalidParameter);
    EXPECT_EQ(m_logs.Open(nullptr, nullptr), InvalidParameter);
    EXPECT_EQ(m_logs.Open(&handle, nullptr), InvalidParameter);
    EXPECT_EQ(handle, nullptr);
    handle = Open();
    EXPECT_EQ(m_logs.Trace(handle, nullptr, L"line\r\n"), InvalidParameter);
    EXPECT_EQ(m_logs.Trace(handle, &m_time, nullptr), InvalidParameter);
    EXPECT_EQ(ReadBytes(Path()), "");
}

TEST_F(VdDbgOpenLogs, ALogThatCannotBeOpenedGivesNoHandle)
{
    std::filesystem::create_directory(Path());
    const DebugLogConfig config = Config();
    void* handle = this;
    EXPECT_NE(m_logs.Open(&handle, &config), 0U);
    EXPECT_EQ(handle, nullptr);
}

TEST_F(VdDbgOpenLogs, EightThreadsThroughOneHandleLoseNoLine)
{
    constexpr int PerThread = 200;
    void* const handle = Open();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
    {
        threads.emplace_back(
            [&, thread]
            {
                const std::wstring line(40, static_cast<wchar_t>(L'a' + thread));
                for (int i = 0; i < PerThread; ++i)
                {
                    EXPECT_EQ(m_logs.Trace(handle, &m_time, (line + L"\r\n").c_str()), 0U);
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    std::vector<int> counts(8);
    for (const std::string& line : LinesOf(Path()))
    {
        EXPECT_EQ(line, std::string(40, line[0]));
        ++counts.at(static_cast<std::size_t>(line[0] - 'a'));
    }
    EXPECT_EQ(counts, std::vector<int>(8, PerThread));
}

TEST_F(VdDbgOpenLogs, ALogMayBeClosedWhileLinesAreWritten)
{
    void* const handle = Open();
    const auto inTime = [start = GetTickCount64()] { return GetTickCount64() - start < 60'000; };
    std::atomic<int> accepted = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
    {
        threads.emplace_back(
            [&]
            {
                std::uint32_t result = 0;
                while (inTime() && (result = m_logs.Trace(handle, &m_time, L"line\r\n")) == 0)
                {
                    ++accepted;
                }
                EXPECT_EQ(result, InvalidHandle);
            });
    }
    while (inTime() && accepted < 50)
    {
        SwitchToThread();
    }
    EXPECT_EQ(m_logs.Close(handle), 0U);
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(LinesOf(Path()), std::vector<std::string>(static_cast<std::size_t>(accepted.load()), "line"));
    EXPECT_TRUE(IsFree(Path()));
}
