#include "suite/VdDbg/Log.h"

#include "tests/support/DebuggerOutput.h"
#include "tests/support/ImportPatch.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

using VdDbg::Log;

extern "C" decltype(&::FlushFileBuffers) __imp_FlushFileBuffers;

namespace
{

class VdDbgLog : public ::testing::Test
{
protected:
    DebugLogConfig Config() const
    {
        return ConfigOf({.folder = m_folder.Path().wstring(),
                         .prefix = L"zpt",
                         .file = L"",
                         .extension = L"log",
                         .module = L"Kestrix"});
    }

    std::wstring Path() const { return m_folder.File(L"zptKestrix.log"); }

    const TemporaryFolder m_folder;
};

struct Flushes
{
    inline static int s_nCount = 0;

    static BOOL WINAPI Count(HANDLE)
    {
        ++s_nCount;
        return TRUE;
    }
};

int FlushesOfOneLine(const DebugLogConfig& config)
{
    Log log(config);
    Flushes::s_nCount = 0;
    const ImportPatch<decltype(&::FlushFileBuffers)> count(__imp_FlushFileBuffers, &Flushes::Count);
    EXPECT_EQ(log.Write(Noon(), L"line\r\n"), 0U);
    return Flushes::s_nCount;
}

} // namespace

TEST_F(VdDbgLog, LinesAreUtf8WithoutAByteOrderMark)
{
    Log log(Config());
    EXPECT_EQ(log.Open(), 0U);
    EXPECT_EQ(log.Write(Noon(), L"\u65E5\u00FC\U0001F600\xD800\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Path()), "\xE6\x97\xA5\xC3\xBC\xF0\x9F\x98\x80\xEF\xBF\xBD\r\n");
}

TEST_F(VdDbgLog, NothingHappensForAnEmptyLine)
{
    DebugLogConfig config = Config();
    config.debugger = true;
    Log log(config);
    const DebuggerOutput output;
    EXPECT_EQ(log.Write(Noon(), L""), 0U);
    EXPECT_FALSE(std::filesystem::exists(Path()));
    EXPECT_TRUE(output.Texts().empty());
}

TEST_F(VdDbgLog, RobustFlushesEachLine)
{
    DebugLogConfig config = Config();
    EXPECT_EQ(FlushesOfOneLine(config), 0);
    config.robust = true;
    EXPECT_EQ(FlushesOfOneLine(config), 1);
}

TEST_F(VdDbgLog, DebuggerSendsEachLineThereAndIntoTheFile)
{
    DebugLogConfig config = Config();
    config.debugger = true;
    Log log(config);
    const DebuggerOutput output;
    EXPECT_EQ(log.Write(Noon(), L"one\r\n"), 0U);
    EXPECT_EQ(log.Write(Noon(), L"two\r\n"), 0U);
    EXPECT_EQ(output.Texts(), (std::vector<std::string>{"one\r\n", "two\r\n"}));
    EXPECT_EQ(ReadBytes(Path()), "one\r\ntwo\r\n");
}

TEST_F(VdDbgLog, WithoutDebuggerNothingIsSentThere)
{
    Log log(Config());
    const DebuggerOutput output;
    EXPECT_EQ(log.Write(Noon(), L"one\r\n"), 0U);
    EXPECT_TRUE(output.Texts().empty());
}

TEST_F(VdDbgLog, TheDebuggerGetsALineThatTheFileDoesNotTake)
{
    DebugLogConfig config = Config();
    config.debugger = true;
    std::filesystem::create_directory(Path());
    Log log(config);
    const DebuggerOutput output;
    EXPECT_NE(log.Write(Noon(), L"one\r\n"), 0U);
    EXPECT_EQ(output.Texts(), std::vector<std::string>{"one\r\n"});
}

TEST_F(VdDbgLog, WhatHasNoMeaningHereChangesNothing)
{
    DebugLogConfig config = Config();
    config.logProcess = 7;
    config.logUnitType = 9;
    config.serviceSession = true;
    config.startTime = At(2001, 1, 1);
    Log log(config);
    EXPECT_EQ(log.Write(Noon(), L"one\r\n"), 0U);
    EXPECT_EQ(FilesIn(m_folder.Path()), std::vector<std::wstring>{L"zptKestrix.log"});
    EXPECT_EQ(ReadBytes(Path()), "one\r\n");
}
