#include "framework/ui/kestrix/logs/LogFields.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using FieldTexts = std::vector<std::wstring_view>;

class LogFieldsTest : public ::testing::Test
{
protected:
    FieldTexts All() const { return {m_fields.begin(), m_fields.end()}; }

    std::pmr::monotonic_buffer_resource m_memory;
    LogFields m_fields{&m_memory};
};

} // namespace

TEST_F(LogFieldsTest, StandInTheOrderInWhichTheyWereAppendedHoweverMany)
{
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < 100; ++i)
    {
        texts.push_back(std::to_wstring(i));
    }
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        m_fields.push_back(texts[i]);
        ASSERT_EQ(m_fields.size(), i + 1);
        ASSERT_EQ(m_fields.back(), texts[i]);
    }
    EXPECT_EQ(All(), FieldTexts(texts.begin(), texts.end()));
}

TEST_F(LogFieldsTest, StayWhereTheyAreWhileThereIsRoom)
{
    m_fields.reserve(10);
    m_fields.push_back(L"first");
    const std::wstring_view* const begin = m_fields.begin();
    while (m_fields.size() < 10)
    {
        m_fields.push_back(L"more");
    }
    m_fields.reserve(10);
    EXPECT_EQ(m_fields.begin(), begin);
    m_fields.reserve(3);
    EXPECT_EQ(m_fields.size(), 10u) << "less room is no wish";
}

TEST_F(LogFieldsTest, AFieldCanBeReplaced)
{
    m_fields.push_back(L"a");
    m_fields.push_back(L"b");
    m_fields[0] = L"c";
    m_fields.back() = L"d";
    EXPECT_EQ(All(), (FieldTexts{L"c", L"d"}));
}

TEST_F(LogFieldsTest, BecomeFewerOrMoreAndThenEmpty)
{
    EXPECT_TRUE(m_fields.empty());
    m_fields.push_back(L"a");
    m_fields.push_back(L"b");
    m_fields.resize(1);
    EXPECT_EQ(All(), FieldTexts{L"a"});
    m_fields.resize(6);
    EXPECT_EQ(All(), (FieldTexts{L"a", L"", L"", L"", L"", L""}));
    m_fields.resize(0);
    EXPECT_TRUE(m_fields.empty());
}
