#include "tests/unit/common/VdCommon/DebugLogTest.h"

#include "common/VdCommon/VdComn_String.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <regex>
#include <thread>

namespace
{

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

TEST_F(DebugLogTest, AnotherInitializeCanSwitchTracingOffAndOnAgain)
{
    Enable();
    ASSERT_TRUE(Initialize());
    const Key key = Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey);
    m_registry.SetNumber(InteractiveKey, L"Enable", 0);
    ASSERT_TRUE(m_log.Initialize(L"Other", key, L"nowhere"));
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->lines.empty());
    m_registry.SetNumber(InteractiveKey, L"Enable", 1);
    ASSERT_TRUE(m_log.Initialize(L"Other", key, L"nowhere"));
    EXPECT_TRUE(Trace(TraceLevel::Error));
    ASSERT_EQ(m_calls->lines.size(), 1U);
    EXPECT_NE(m_calls->lines[0].find(L" <Other> text"), std::wstring::npos) << m_calls->lines[0].c_str();
}

TEST_F(DebugLogTest, AnInitializeAfterOneThatFoundTracingOffOpensNoLibrary)
{
    ASSERT_TRUE(Initialize());
    Enable();
    ASSERT_TRUE(m_log.Initialize(L"Kestrix", Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey), FolderOf(L"good")));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->configs.empty());
}

// The rooms of the process, restored at the end. There is no memory for a second, larger room.
class OneRoomOf
{
public:
    explicit OneRoomOf(std::size_t size) { Sizes() = {size, std::size_t{1} << 58}; }

    ~OneRoomOf() { Sizes() = {256, 256}; }

private:
    static VdCommon::String::BufferSizes& Sizes() { return VdCommon::String::ProcessBufferSizes(); }
};

TEST_F(DebugLogTest, AMessageThatCannotBeFormattedLeavesItsLineWithoutOne)
{
    Enable();
    ASSERT_TRUE(Initialize());
    const OneRoomOf room(256);
    EXPECT_TRUE(Trace(TraceLevel::Info, std::wstring(256, L'x').c_str()));
    ASSERT_EQ(m_calls->lines.size(), 1U);
    EXPECT_TRUE(m_calls->lines[0].ends_with(L" <Kestrix>  - a.cpp(1)\r\n")) << m_calls->lines[0].c_str();
}

TEST_F(DebugLogTest, ALineThatCannotBeComposedIsWrittenEmpty)
{
    Enable();
    ASSERT_TRUE(Initialize());
    const OneRoomOf room(256);
    EXPECT_TRUE(m_log.Trace(std::string(256, 'n').c_str(), 1, TraceLevel::Info, L"text"));
    EXPECT_EQ(m_calls->lines, std::vector<std::wstring>{L""});
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

// Such a name was taken for one that cannot be widened, and came out as "(null)".
TEST_F(DebugLogTest, AnEmptyBaseNameIsWrittenEmpty)
{
    Enable();
    ASSERT_TRUE(Initialize());
    for (const char* const name : {"", "folder/", "folder\\"})
    {
        EXPECT_TRUE(m_log.Trace(name, 5, TraceLevel::Info, L"text"));
        EXPECT_TRUE(m_calls->lines.back().ends_with(L"> text - (5)\r\n")) << name;
    }
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
