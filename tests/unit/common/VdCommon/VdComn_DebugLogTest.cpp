#include "common/VdCommon/VdComn_DebugLog.h"

#include "common/VdCommon/VdComn_Storage.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceLibraryDouble.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <thread>

namespace
{

using VdCommon::DebugLog;
using VdCommon::TraceLevel;
using VdCommon::Storage::Key;

constexpr wchar_t SettingsKey[] = L"Software\\Test\\DebugLog";
constexpr wchar_t InteractiveKey[] = L"Software\\Test\\DebugLog\\InteractiveSession";
constexpr std::uint32_t AllLevels = 0x111;

std::wstring FolderOf(const std::wstring& form)
{
    return L"..\\tests\\trace-" + form;
}

// A debug log with settings of its own and a library that stays loaded for as long as the test looks at it.
class DebugLogTest : public testing::Test
{
protected:
    void Enable(std::uint32_t levels = AllLevels)
    {
        m_registry.SetNumber(InteractiveKey, L"Enable", 1);
        m_registry.SetNumber(InteractiveKey, L"Level", levels);
    }

    void SetTheRest()
    {
        m_registry.SetNumber(InteractiveKey, L"LogProcess", 3);
        m_registry.SetNumber(InteractiveKey, L"LogUnitType", 4);
        m_registry.SetText(InteractiveKey, L"LogFolder", L"C:\\Trace");
        m_registry.SetText(InteractiveKey, L"LogPrefix", L"pre");
        m_registry.SetText(InteractiveKey, L"LogFile", L"file");
        m_registry.SetText(InteractiveKey, L"LogExtension", L"txt");
        m_registry.SetNumber(InteractiveKey, L"Robust", 7);
        m_registry.SetNumber(InteractiveKey, L"Debugger", 8);
    }

    bool Initialize(const std::wstring& form = L"good", const std::wstring& folderEnd = {})
    {
        m_module.reset(LoadLibraryW((FolderOf(form) + L"\\VdDbg64.dll").c_str()));
        EXPECT_EQ(static_cast<bool>(m_module), form != L"nowhere") << "the library of the form was not built";
        if (m_module)
        {
            const auto function = GetProcAddress(m_module.get(), "FreshTraceCalls");
            m_calls = &reinterpret_cast<TraceCallsFunction*>(reinterpret_cast<void (*)()>(function))();
        }
        return m_log.Initialize(L"Kestrix", Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey),
                                FolderOf(form) + folderEnd);
    }

    bool Trace(TraceLevel level, const wchar_t* text = L"text") { return m_log.Trace("a.cpp", 1, level, L"%s", text); }

    const RegistrySandbox m_registry;
    UniqueModule m_module;
    DebugLog m_log;
    TraceCalls* m_calls = nullptr;
};

TEST_F(DebugLogTest, ACallBeforeInitializeGivesFalseAndWritesNothing)
{
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_FALSE(m_log.Uninitialize());
}

TEST_F(DebugLogTest, ACallAfterUninitializeGivesFalseAndWritesNothing)
{
    Enable();
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_log.Uninitialize());
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_EQ(m_calls->lines.size(), 1U);
    EXPECT_EQ(m_calls->closed, std::vector<void*>{m_calls});
    EXPECT_FALSE(m_log.Uninitialize());
}

TEST_F(DebugLogTest, WithoutAKeyTracingIsOffAndCallsGiveTrue)
{
    EXPECT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->configs.empty());
    EXPECT_TRUE(m_log.Uninitialize());
}

TEST_F(DebugLogTest, EnableZeroMeansOff)
{
    Enable();
    m_registry.SetNumber(InteractiveKey, L"Enable", 0);
    EXPECT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->lines.empty());
}

TEST_F(DebugLogTest, Level17PassesLevels1And16AndDrops256)
{
    Enable(17);
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Flow));
    EXPECT_TRUE(Trace(TraceLevel::Info));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_EQ(m_calls->lines.size(), 2U);
}

TEST_F(DebugLogTest, WithoutLevelOnly256PassesAndEveryLaterSettingIsZeroOrEmpty)
{
    SetTheRest();
    m_registry.SetNumber(InteractiveKey, L"Enable", 1);
    ASSERT_TRUE(Initialize());
    EXPECT_FALSE(Trace(TraceLevel::Flow));
    EXPECT_FALSE(Trace(TraceLevel::Info));
    EXPECT_TRUE(Trace(TraceLevel::Error));
    const DebugLogConfig& config = m_calls->configs.at(0);
    EXPECT_EQ(config.logProcess, 0U);
    EXPECT_STREQ(config.logFolder, L"");
    EXPECT_STREQ(config.logPrefix, L"");
    EXPECT_STREQ(config.logExtension, L"");
    EXPECT_FALSE(config.robust);
    EXPECT_STREQ(config.moduleName, L"Kestrix");
}

TEST_F(DebugLogTest, EverySettingReachesTheLibrary)
{
    Enable();
    SetTheRest();
    SYSTEMTIME before{};
    GetLocalTime(&before);
    ASSERT_TRUE(Initialize());
    const DebugLogConfig& config = m_calls->configs.at(0);
    EXPECT_FALSE(config.serviceSession);
    EXPECT_TRUE(config.robust);
    EXPECT_TRUE(config.debugger);
    EXPECT_EQ(config.zero, 0);
    EXPECT_EQ(config.logProcess, 3U);
    EXPECT_EQ(config.logUnitType, 4U);
    EXPECT_STREQ(config.moduleName, L"Kestrix");
    EXPECT_STREQ(config.logFolder, L"C:\\Trace");
    EXPECT_STREQ(config.logPrefix, L"pre");
    EXPECT_STREQ(config.logFile, L"file");
    EXPECT_STREQ(config.logExtension, L"txt");
    EXPECT_GE(config.startTime.wYear, before.wYear);
    EXPECT_NE(config.startTime.wDay, 0);
}

TEST_F(DebugLogTest, AMissingPrefixEndsTheReadingWithNoDefaults)
{
    Enable();
    m_registry.SetNumber(InteractiveKey, L"LogProcess", 1);
    m_registry.SetNumber(InteractiveKey, L"LogUnitType", 2);
    m_registry.SetText(InteractiveKey, L"LogFolder", L"C:\\Trace");
    m_registry.SetText(InteractiveKey, L"LogFile", L"file");
    ASSERT_TRUE(Initialize());
    EXPECT_STREQ(m_calls->configs.at(0).logFolder, L"C:\\Trace");
    EXPECT_STREQ(m_calls->configs.at(0).logPrefix, L"");
    EXPECT_STREQ(m_calls->configs.at(0).logFile, L"");
    EXPECT_STREQ(m_calls->configs.at(0).logExtension, L"");
}

TEST_F(DebugLogTest, AMessageLongerThan256CharactersIsWrittenWhole)
{
    Enable();
    ASSERT_TRUE(Initialize());
    for (const std::size_t length : {254U, 255U, 256U, 257U, 511U, 512U, 5000U})
    {
        const std::wstring text(length, L'x');
        EXPECT_TRUE(Trace(TraceLevel::Info, text.c_str()));
        EXPECT_NE(m_calls->lines.back().find(L"<Kestrix> " + text + L" - a.cpp(1)\r\n"), std::wstring::npos) << length;
    }
}

TEST_F(DebugLogTest, AFolderWithAndWithoutABackslashIsTheSame)
{
    Enable();
    EXPECT_TRUE(Initialize(L"good", L"\\"));
    EXPECT_TRUE(m_log.Uninitialize());
    EXPECT_TRUE(Initialize(L"good"));
}

TEST_F(DebugLogTest, AnEmptyFolderLeavesTheFileNameToTheSystem)
{
    Enable();
    const TemporaryFolder folder;
    std::filesystem::copy_file(FolderOf(L"good") + L"\\VdDbg64.dll", folder.File(L"VdDbg64.dll"));
    SetDllDirectoryW(folder.Path().c_str());
    DebugLog log;
    EXPECT_TRUE(log.Initialize(L"Kestrix", Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey), L""));
    EXPECT_TRUE(log.Trace("a.cpp", 1, TraceLevel::Error, L"text"));
    EXPECT_TRUE(log.Uninitialize());
    SetDllDirectoryW(nullptr);
}

TEST_F(DebugLogTest, WithoutATraceLibraryInitializeFailsAndCallsGiveFalse)
{
    Enable();
    EXPECT_FALSE(Initialize(L"nowhere"));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_FALSE(m_log.Uninitialize());
}

TEST_F(DebugLogTest, ALibraryThatLacksAnExportFails)
{
    Enable();
    EXPECT_FALSE(Initialize(L"incomplete"));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->configs.empty());
}

TEST_F(DebugLogTest, ALibraryThatRefusesIsUnloadedAndAnotherStartBeginsAfresh)
{
    Enable();
    EXPECT_FALSE(Initialize(L"refusing"));
    EXPECT_EQ(m_calls->configs.size(), 1U);
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_FALSE(Initialize(L"handleless"));
    EXPECT_TRUE(Initialize(L"good"));
    EXPECT_TRUE(Trace(TraceLevel::Error));
}

TEST_F(DebugLogTest, AnUnknownKindOfKeyFails)
{
    for (const std::uint32_t kind : {2U, 3U, 5U})
    {
        const Key key{kind, reinterpret_cast<std::uintptr_t>(HKEY_LOCAL_MACHINE), SettingsKey};
        EXPECT_FALSE(m_log.Initialize(L"Kestrix", key, L".")) << kind;
        EXPECT_FALSE(Trace(TraceLevel::Error));
    }
}

TEST_F(DebugLogTest, KindFourIsTheRegistryToo)
{
    Enable();
    const Key key{Key::RegistryToo, reinterpret_cast<std::uintptr_t>(HKEY_LOCAL_MACHINE), SettingsKey};
    EXPECT_TRUE(m_log.Initialize(L"Kestrix", key, FolderOf(L"good")));
    EXPECT_TRUE(Trace(TraceLevel::Flow));
}

TEST_F(DebugLogTest, KindOneReadsTheSameValuesFromAnIniFileWithItsDefaults)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"trace.ini"), "[ServiceSession]\r\nEnable=0\r\n"
                                          "[InteractiveSession]\r\nEnable=1\r\nLevel=16\r\nLogFolder=C:\\Trace\r\n");
    m_module.reset(LoadLibraryW((FolderOf(L"good") + L"\\VdDbg64.dll").c_str()));
    const std::wstring path = folder.Path().wstring();
    ASSERT_TRUE(m_log.Initialize(L"Kestrix", Key::InIniFile(path.c_str(), L"trace.ini"), FolderOf(L"good")));
    EXPECT_TRUE(Trace(TraceLevel::Info));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    const auto function = GetProcAddress(m_module.get(), "TraceCallsOfThis");
    const TraceCalls& calls = reinterpret_cast<TraceCallsFunction*>(reinterpret_cast<void (*)()>(function))();
    EXPECT_STREQ(calls.configs.back().logFolder, L"C:\\Trace");
    EXPECT_STREQ(calls.configs.back().logPrefix, L"zpt");
    EXPECT_STREQ(calls.configs.back().logExtension, L"log");
}

TEST_F(DebugLogTest, AnotherInitializeWhileOnReadsTheSettingsAgainAndKeepsTheLog)
{
    Enable(1);
    ASSERT_TRUE(Initialize());
    EXPECT_FALSE(Trace(TraceLevel::Error));
    Enable(256);
    ASSERT_TRUE(m_log.Initialize(L"Kestrix", Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey), L"nowhere"));
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_FALSE(Trace(TraceLevel::Flow));
    EXPECT_EQ(m_calls->configs.size(), 1U);
    EXPECT_TRUE(m_calls->closed.empty());
}

TEST_F(DebugLogTest, ALineThatTheLibraryRefusesGivesFalse)
{
    Enable();
    ASSERT_TRUE(Initialize());
    m_calls->traceResult = 1;
    EXPECT_FALSE(Trace(TraceLevel::Error));
}

TEST_F(DebugLogTest, ALineHasItsFourParts)
{
    Enable();
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(m_log.Trace("framework/ui/Kestrix", 143, TraceLevel::Info, L"number %d", 7));
    wchar_t identity[64];
    _snwprintf(identity, std::size(identity), L" %04x:%04x @@@ <Kestrix> number 7 - Kestrix\\(143\\)\r\n",
               static_cast<unsigned>(GetCurrentProcessId()), static_cast<unsigned>(GetCurrentThreadId()));
    const SYSTEMTIME& time = m_calls->times.at(0);
    wchar_t stamp[64];
    _snwprintf(stamp, std::size(stamp), L"%02d/%02d/%04d %02d:%02d:%02d\\.%03d", time.wDay, time.wMonth, time.wYear,
               time.wHour, time.wMinute, time.wSecond, time.wMilliseconds);
    EXPECT_TRUE(std::regex_match(m_calls->lines.at(0), std::wregex(std::wstring(stamp) + identity)));
}

TEST_F(DebugLogTest, EachLevelHasItsTag)
{
    Enable(0xFFFFFFFF);
    ASSERT_TRUE(Initialize());
    constexpr std::pair<std::uint32_t, const wchar_t*> tags[] = {
        {1, L" .w. "}, {16, L" @@@ "}, {256, L" !!! "}, {2, L" ??? "}};
    for (const auto& [level, tag] : tags)
    {
        Trace(static_cast<TraceLevel>(level));
        EXPECT_NE(m_calls->lines.back().find(tag), std::wstring::npos) << level;
    }
}

TEST_F(DebugLogTest, ASourceNameLosesItsFolderWhateverTheSeparator)
{
    Enable();
    ASSERT_TRUE(Initialize());
    for (const char* const name : {"b.cpp", "a/b.cpp", "a\\b.cpp", "a\\c/b.cpp", "/a\\b.cpp"})
    {
        m_log.Trace(name, 5, TraceLevel::Info, L"text");
        EXPECT_TRUE(m_calls->lines.back().ends_with(L"text - b.cpp(5)\r\n")) << name;
    }
}

TEST_F(DebugLogTest, ANullSourceNameIsWrittenAsTheFormatterWritesIt)
{
    Enable();
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(m_log.Trace(nullptr, 5, TraceLevel::Info, L"text"));
    EXPECT_TRUE(m_calls->lines.back().ends_with(L"text - (null)(5)\r\n"));
}

TEST_F(DebugLogTest, TextsOfEveryKindAreTaken)
{
    Enable();
    ASSERT_TRUE(Initialize());
    const std::wstring text = L"string";
    const std::wstring_view part = std::wstring_view(L"a view and more").substr(2, 4);
    m_log.Trace("a.cpp", 1, TraceLevel::Info, L"%s %s %s %u %d", text, part, L"literal", 7U, true);
    EXPECT_NE(m_calls->lines.back().find(L"> string view literal 7 1 - "), std::wstring::npos);
}

TEST_F(DebugLogTest, AMaskedOrIdleCallDoesNotTouchItsArguments)
{
    const auto* const nowhere = reinterpret_cast<const wchar_t*>(std::uintptr_t{8}); // a fault if it is read
    const std::wstring_view broken(nowhere, 1000);
    EXPECT_FALSE(m_log.Trace("a.cpp", 1, TraceLevel::Info, L"%s %s", nowhere, broken));
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(m_log.Trace("a.cpp", 1, TraceLevel::Info, L"%s %s", nowhere, broken));
    ASSERT_TRUE(m_log.Uninitialize());
    Enable(256);
    ASSERT_TRUE(Initialize());
    EXPECT_FALSE(m_log.Trace("a.cpp", 1, TraceLevel::Info, L"%s %s", nowhere, broken));
}

TEST_F(DebugLogTest, EightThreadsTracingAtOnceLoseAndMixNoLine)
{
    constexpr int threads = 8;
    constexpr int lines = 500;
    Enable();
    ASSERT_TRUE(Initialize());
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread)
    {
        running.emplace_back(
            [this, thread]
            {
                for (int line = 0; line < lines; ++line)
                {
                    m_log.Trace("a.cpp", 1, TraceLevel::Flow, L"[%d:%d]%s", thread, line, std::wstring(300, L'x'));
                }
            });
    }
    for (std::thread& thread : running)
    {
        thread.join();
    }
    ASSERT_EQ(m_calls->lines.size(), static_cast<std::size_t>(threads * lines));
    std::vector<int> next(threads, 0);
    const std::wregex form(L"[^<]*<Kestrix> \\[(\\d+):(\\d+)\\]x{300} - a\\.cpp\\(1\\)\r\n");
    for (const std::wstring& line : m_calls->lines)
    {
        std::wsmatch match;
        ASSERT_TRUE(std::regex_match(line, match, form));
        EXPECT_EQ(std::stoi(match[2]), next.at(std::stoi(match[1]))++) << "lines of one thread keep their order";
    }
}

} // namespace
