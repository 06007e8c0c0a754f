// The built library, as its users load it.

#include "common/OrlDbMg.h"
#include "platform/dialog/UniqueHandle.h"
#include "tests/unit/suite/OrlDbMg/Installation.h"
#include "tests/unit/suite/OrlDbMg/RawProvider.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>

namespace
{

using Strings = std::vector<std::wstring>;

constexpr HRESULT Success = 0x00040200;
constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t Firewall = 6;

template <class Function>
Function Find(const UniqueModule& library, const char* name)
{
    const FARPROC found = GetProcAddress(library.get(), name);
    EXPECT_NE(found, nullptr) << name;
    Function function = nullptr;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

class OrlDbMgExports : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_library) << "error " << GetLastError();
        ASSERT_EQ(m_initialize(0, 0), Success);
        IDBManagerProvider* provider = nullptr;
        ASSERT_EQ(m_create(&provider, 0, 0), Success);
        m_provider.emplace(provider);
        ASSERT_EQ(m_provider->Initialize(), Success);
    }

    // Fails the running test unless the query fails and leaves nothing behind.
    void ExpectFailure(HRESULT status) const
    {
        void* result = nullptr;
        EXPECT_EQ(m_provider->QueryDay(Virus, 2026, 1, 1, &result), status);
        EXPECT_LT(status, 0);
        EXPECT_EQ(result, nullptr);
        EXPECT_EQ(m_provider->QueryDays(Virus, &result), status);
        EXPECT_EQ(result, nullptr);
    }

    Strings LinesOfDay(WORD day) const
    {
        void* result = nullptr;
        EXPECT_EQ(m_provider->QueryDay(Virus, 2026, 1, day, &result), Success);
        return LinesIn(result);
    }

    std::vector<std::string> Days() const
    {
        void* result = nullptr;
        EXPECT_EQ(m_provider->QueryDays(Virus, &result), Success);
        return DaysIn(result);
    }

    const Installation m_installation;
    const UniqueModule m_library{LoadLibraryA(".\\" DATABASE_LIBRARY)};
    OrlInitializeFunction m_initialize = Find<OrlInitializeFunction>(m_library, "Orl_Initialize");
    OrlUninitializeFunction m_uninitialize = Find<OrlUninitializeFunction>(m_library, "Orl_Uninitialize");
    OrlCreateFunction m_create = Find<OrlCreateFunction>(m_library, "Orl_CreateFunction");
    OrlFreeFunction m_free = Find<OrlFreeFunction>(m_library, "Orl_FreeFunction");
    std::optional<RawProvider> m_provider;
};

} // namespace

TEST_F(OrlDbMgExports, RecordsOfADayComeAsTheyWereStored)
{
    const Strings lines = {L"20260101|120000|1|first", L"", L"1234567", L"12345678", std::wstring(2000, L'\x3042')};
    m_installation.Database().Append(Virus, 20260101, lines);
    m_installation.Database().Append(Firewall, 20260101, Strings{L"120000|other kind"});
    m_installation.Database().Append(Virus, 20260102, Strings{L"other day"});
    EXPECT_EQ(LinesOfDay(1), lines);
}

TEST_F(OrlDbMgExports, TextsOfSevenCharactersLieInTheirEntryAndLongerOnesElsewhere)
{
    m_installation.Database().Append(Virus, 20260101, Strings{L"1234567", L"12345678"});
    void* result = nullptr;
    ASSERT_EQ(m_provider->QueryDay(Virus, 2026, 1, 1, &result), Success);
    const auto* const vector = static_cast<const OrlVector<OrlLogEntry>*>(result);
    ASSERT_EQ(vector->last - vector->first, 2);
    EXPECT_EQ(vector->first[0].line.capacity, 7u);
    EXPECT_STREQ(vector->first[0].line.inlineText, L"1234567");
    EXPECT_GE(vector->first[1].line.capacity, 8u);
    EXPECT_STREQ(vector->first[1].line.text, L"12345678");
}

TEST_F(OrlDbMgExports, DaysComeNewestFirstWithNothingBesideTheDate)
{
    for (const EventLog::Day day : {20251231u, 20260301u, 20260102u})
    {
        m_installation.Database().Append(Virus, day, Strings{L"x|120000|a", L"x|130000|b"});
    }
    EXPECT_EQ(Days(),
              (std::vector<std::string>{"2026-3-1 0 0:0:0.0 0", "2026-1-2 0 0:0:0.0 0", "2025-12-31 0 0:0:0.0 0"}));
}

TEST_F(OrlDbMgExports, ADayOrALogWithoutRecordsGivesAnEmptyVector)
{
    m_installation.Database();
    EXPECT_EQ(LinesOfDay(1), Strings{});
    EXPECT_EQ(Days(), std::vector<std::string>{});
}

TEST_F(OrlDbMgExports, ThePeriodOfAnInvalidDateFindsNothing)
{
    m_installation.Database().Append(Virus, 20260101, Strings{L"x|120000|a"});
    void* result = nullptr;
    EXPECT_EQ(m_provider->QueryDay(Virus, 1, 1, 1, &result), Success);
    EXPECT_EQ(LinesIn(result), Strings{});
}

TEST_F(OrlDbMgExports, AnAnswerStaysUntilTheNextQueryThoughTheDatabaseChanges)
{
    m_installation.Database().Append(Virus, 20260101, Strings{L"20260101|120000|first"});
    void* result = nullptr;
    ASSERT_EQ(m_provider->QueryDay(Virus, 2026, 1, 1, &result), Success);
    m_installation.Database().ReplaceDay(Virus, 20260101, Strings{L"20260101|130000|second"});
    EXPECT_EQ(LinesIn(result), Strings{L"20260101|120000|first"});
    EXPECT_EQ(LinesOfDay(1), Strings{L"20260101|130000|second"});
}

TEST_F(OrlDbMgExports, ARecordOfThreeMillionCharactersAndOneWithNulsArriveWhole)
{
    using namespace std::string_literals;
    const Strings lines = {std::wstring(3'000'000, L'z'), L"a\0b\0c\0d\0e\0"s};
    m_installation.Database().Append(Virus, 20260101, lines);
    EXPECT_EQ(LinesOfDay(1), lines);
}

TEST_F(OrlDbMgExports, AMissingDatabaseIsReportedAndStaysAbsent)
{
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_TRUE(std::filesystem::is_empty(m_installation.m_folder.Path()));
}

TEST_F(OrlDbMgExports, ADatabaseThatIsMadeLaterIsFound)
{
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    m_installation.Database().Append(Virus, 20260101, Strings{L"20260101|120000|late"});
    EXPECT_EQ(LinesOfDay(1), Strings{L"20260101|120000|late"});
}

TEST_F(OrlDbMgExports, ADamagedDatabaseIsReportedStaysAsItIsAndIsReadOnceItWasReplaced)
{
    const std::string damaged(10'000, '?');
    WriteBytes(m_installation.DatabasePath(), damaged);
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_FILE_CORRUPT));
    EXPECT_EQ(ReadBytes(m_installation.DatabasePath()), damaged);
    std::filesystem::rename(m_installation.DatabasePath(), m_installation.m_folder.File(L"Rescue.db"));
    m_installation.Database().Append(Virus, 20260101, Strings{L"20260101|120000|new"});
    EXPECT_EQ(LinesOfDay(1), Strings{L"20260101|120000|new"});
}

TEST_F(OrlDbMgExports, ATruncatedDatabaseIsReportedAndStaysAsItIs)
{
    m_installation.Database().Append(Virus, 20260101, Strings(5000, L"20260101|120000|a line among many"));
    std::filesystem::resize_file(m_installation.DatabasePath(), 100 * 4096);
    const std::string truncated = ReadBytes(m_installation.DatabasePath());
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_FILE_CORRUPT));
    EXPECT_EQ(ReadBytes(m_installation.DatabasePath()), truncated);
}

TEST_F(OrlDbMgExports, ADatabaseOfANewerVersionIsReported)
{
    m_installation.Database();
    EventLog::Connection(m_installation.DatabasePath(), EventLog::OpenMode::Existing, std::chrono::seconds(1))
        .Execute("PRAGMA user_version=3");
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_REVISION_MISMATCH));
}

TEST_F(OrlDbMgExports, RequestsThatNobodyMakesAreRefused)
{
    m_installation.Database();
    const WORD period[21]{};
    void* result = this;
    EXPECT_LT(m_provider->Query(1, 1, Virus, &result, 0, period), 0);
    EXPECT_LT(m_provider->Query(2, 0, Virus, &result, 0, period), 0);
    EXPECT_LT(m_provider->Query(2, 3, Virus, &result, 0, period), 0);
    EXPECT_LT(m_provider->Query(2, 1, Virus, &result, 1, period), 0);
    EXPECT_LT(m_provider->Query(2, 1, Virus, &result, 0, nullptr), 0);
    EXPECT_LT(m_provider->Query(2, 1, Virus, nullptr, 0, period), 0);
    EXPECT_LT(m_create(nullptr, 0, 0), 0);
}

TEST_F(OrlDbMgExports, ThereIsOneProviderUntilItIsFreed)
{
    IDBManagerProvider* first = nullptr;
    IDBManagerProvider* second = nullptr;
    EXPECT_EQ(m_create(&first, 0, 0), Success);
    EXPECT_EQ(m_create(&second, 0, 0), Success);
    EXPECT_EQ(first, second);
}

TEST_F(OrlDbMgExports, TheWholeLifeCanBeLivedTwice)
{
    for (int life = 0; life < 2; ++life)
    {
        m_installation.Database().ReplaceDay(Virus, 20260101, Strings{L"20260101|120000|line"});
        EXPECT_EQ(LinesOfDay(1).size(), 1u);
        EXPECT_EQ(m_provider->Uninitialize(), Success);
        EXPECT_EQ(m_free(0, 0, 0), Success);
        EXPECT_EQ(m_uninitialize(0, 0), Success);
        SetUp();
    }
}

TEST_F(OrlDbMgExports, UninitializeLetsGoOfTheFile)
{
    m_installation.Database().Append(Virus, 20260101, Strings{L"20260101|120000|line"});
    EXPECT_EQ(LinesOfDay(1).size(), 1u);
    EXPECT_FALSE(DeleteFileW(m_installation.DatabasePath().c_str()));
    EXPECT_EQ(m_provider->Uninitialize(), Success);
    EXPECT_TRUE(DeleteFileW(m_installation.DatabasePath().c_str()));
}

TEST_F(OrlDbMgExports, FreeingLetsGoOfTheFileToo)
{
    m_installation.Database().Append(Virus, 20260101, Strings{L"20260101|120000|line"});
    EXPECT_EQ(LinesOfDay(1).size(), 1u);
    EXPECT_EQ(m_free(0, 0, 0), Success);
    EXPECT_TRUE(DeleteFileW(m_installation.DatabasePath().c_str()));
}

TEST_F(OrlDbMgExports, WithoutAnInstalledFolderQueriesFail)
{
    m_installation.m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", L"");
    ExpectFailure(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
}
