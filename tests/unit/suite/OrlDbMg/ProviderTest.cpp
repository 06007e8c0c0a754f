// What needs a provider with a shorter patience than the library's.

#include "suite/OrlDbMg/Provider.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/unit/suite/OrlDbMg/Installation.h"

#include <gtest/gtest.h>

namespace
{

using Strings = std::vector<std::wstring>;

constexpr std::chrono::milliseconds ShortTimeout{50};
constexpr std::uint32_t VirusType = 2;
constexpr OrlPeriod FirstOfJanuary = {{2026, 1, 0, 1, 0, 0, 0, 0}, {2026, 1, 0, 1, 23, 59, 59, 0}};

class ProviderTest : public ::testing::Test
{
protected:
    ProviderTest() { m_installation.Database().Append(VirusType, 20260101, Strings{L"20260101|120000|line"}); }

    HRESULT Query()
    {
        return m_provider.QueryValue(OrlKindEventLog, OrlQueryRecords, VirusType, &m_result, 0, &FirstOfJanuary);
    }

    std::size_t Count() const
    {
        const auto* const vector = static_cast<const OrlVector<OrlLogEntry>*>(m_result);
        return static_cast<std::size_t>(vector->last - vector->first);
    }

    const Installation m_installation;
    OrlDbMg::Provider m_provider{ShortTimeout};
    void* m_result = nullptr;
};

} // namespace

TEST_F(ProviderTest, ADatabaseThatSomebodyHasLockedIsReportedAndReadLater)
{
    {
        const EventLog::Connection other(m_installation.DatabasePath(), EventLog::OpenMode::Existing, ShortTimeout);
        other.Execute("PRAGMA locking_mode=EXCLUSIVE");
        const EventLog::Transaction transaction(other);
        EXPECT_EQ(Query(), HRESULT_FROM_WIN32(ERROR_LOCK_VIOLATION));
        EXPECT_EQ(m_result, nullptr);
    }
    EXPECT_EQ(Query(), OrlSuccess);
    EXPECT_EQ(Count(), 1u);
}

TEST_F(ProviderTest, AWriterAtWorkDisturbsNoQuery)
{
    const EventLog::Connection other(m_installation.DatabasePath(), EventLog::OpenMode::Existing, ShortTimeout);
    EventLog::Transaction transaction(other);
    other.Execute("DELETE FROM events");
    EXPECT_EQ(Query(), OrlSuccess);
    EXPECT_EQ(Count(), 1u);
    transaction.Commit();
    EXPECT_EQ(Query(), OrlSuccess);
    EXPECT_EQ(Count(), 0u);
}

TEST_F(ProviderTest, AReadOnlyDatabaseIsRead)
{
    const UniqueFile holder(CreateFileW(m_installation.DatabasePath().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    EXPECT_EQ(Query(), OrlSuccess);
    EXPECT_EQ(Count(), 1u);
}

TEST_F(ProviderTest, TheFirstSlotIsNotImplemented)
{
    EXPECT_EQ(m_provider.Reserved(), E_NOTIMPL);
}
