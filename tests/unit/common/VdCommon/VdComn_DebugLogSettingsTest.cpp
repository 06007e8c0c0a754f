#include "common/VdCommon/VdComn_DebugLogSettings.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/unit/common/VdCommon/DebugLogTest.h"
#include "tests/unit/common/VdCommon/SessionDouble.h"

namespace
{

using DebugLogSettingsTest = DebugLogTest;

TEST_F(DebugLogSettingsTest, Level17PassesLevels1And16AndDrops256)
{
    Enable(17);
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Flow));
    EXPECT_TRUE(Trace(TraceLevel::Info));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_EQ(m_calls->lines.size(), 2U);
}

TEST_F(DebugLogSettingsTest, WithoutLevelOnly256PassesAndEveryLaterSettingIsZeroOrEmpty)
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

TEST_F(DebugLogSettingsTest, EverySettingReachesTheLibrary)
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

TEST_F(DebugLogSettingsTest, RobustAndDebuggerAreSettingsOfTheirOwn)
{
    Enable();
    SetTheRest();
    for (const bool robust : {true, false})
    {
        m_registry.SetNumber(InteractiveKey, L"Robust", robust);
        m_registry.SetNumber(InteractiveKey, L"Debugger", !robust);
        ASSERT_TRUE(Initialize());
        EXPECT_EQ(m_calls->configs.at(0).robust, robust);
        EXPECT_EQ(m_calls->configs.at(0).debugger, !robust);
        ASSERT_TRUE(m_log.Uninitialize());
    }
}

TEST_F(DebugLogSettingsTest, AServiceReadsTheSettingsOfItsOwnSession)
{
    const SessionDouble service(0);
    m_registry.SetNumber(InteractiveKey, L"Enable", 0);
    m_registry.SetNumber(ServiceKey, L"Enable", 1);
    m_registry.SetNumber(ServiceKey, L"Level", 16);
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Info));
    EXPECT_FALSE(Trace(TraceLevel::Error));
    EXPECT_TRUE(m_calls->configs.at(0).serviceSession);
}

TEST_F(DebugLogSettingsTest, AProgramOfAUserReadsNothingOfTheServiceSession)
{
    const SessionDouble user(1);
    Enable(16);
    m_registry.SetNumber(ServiceKey, L"Enable", 0);
    ASSERT_TRUE(Initialize());
    EXPECT_TRUE(Trace(TraceLevel::Info));
    EXPECT_FALSE(m_calls->configs.at(0).serviceSession);
}

TEST_F(DebugLogSettingsTest, AMissingPrefixEndsTheReadingWithNoDefaults)
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

TEST_F(DebugLogSettingsTest, AnUnknownKindOfKeyFails)
{
    for (const std::uint32_t kind : {2U, 3U, 5U})
    {
        const Key key{kind, reinterpret_cast<std::uintptr_t>(HKEY_LOCAL_MACHINE), SettingsKey};
        EXPECT_FALSE(m_log.Initialize(L"Kestrix", key, L".")) << kind;
        EXPECT_FALSE(Trace(TraceLevel::Error));
    }
}

TEST_F(DebugLogSettingsTest, KindFourIsTheRegistryToo)
{
    Enable();
    const Key key{Key::RegistryToo, reinterpret_cast<std::uintptr_t>(HKEY_LOCAL_MACHINE), SettingsKey};
    EXPECT_TRUE(m_log.Initialize(L"Kestrix", key, FolderOf(L"good")));
    EXPECT_TRUE(Trace(TraceLevel::Flow));
}

TEST_F(DebugLogSettingsTest, KindOneReadsTheSameValuesFromAnIniFileWithItsDefaults)
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
    const DebugLogConfig& config = calls.configs.back();
    EXPECT_STREQ(config.logFolder, L"C:\\Trace");
    EXPECT_EQ(config.logProcess, 0U);
    EXPECT_EQ(config.logUnitType, 0U);
    EXPECT_STREQ(config.logPrefix, L"zpt");
    EXPECT_STREQ(config.logFile, L"");
    EXPECT_STREQ(config.logExtension, L"log");
    EXPECT_FALSE(config.robust);
    EXPECT_FALSE(config.debugger);
}

TEST_F(DebugLogSettingsTest, AnIniFileWithoutALevelLetsErrorsThroughAlone)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"trace.ini"), "[InteractiveSession]\r\nEnable=1\r\n");
    const std::wstring path = folder.Path().wstring();
    ASSERT_TRUE(m_log.Initialize(L"Kestrix", Key::InIniFile(path.c_str(), L"trace.ini"), FolderOf(L"good")));
    EXPECT_TRUE(Trace(TraceLevel::Error));
    EXPECT_FALSE(Trace(TraceLevel::Info));
    EXPECT_FALSE(Trace(TraceLevel::Flow));
}

TEST_F(DebugLogSettingsTest, AnIniFileWithoutEnableSwitchesNothingOn)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"trace.ini"), "[InteractiveSession]\r\nLevel=256\r\n");
    const std::wstring path = folder.Path().wstring();
    EXPECT_TRUE(m_log.Initialize(L"Kestrix", Key::InIniFile(path.c_str(), L"trace.ini"), path))
        << "the library, which is not there, is not looked for";
}

} // namespace
