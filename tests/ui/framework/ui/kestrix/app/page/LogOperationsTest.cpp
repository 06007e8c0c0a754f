// What the page puts off while its log is in use.

#include "framework/ui/kestrix/app/page/LogOperations.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace
{

// Writes down what happens: "(" and ")" around an operation, "R" for a refresh.
class LogOperationsTest : public ::testing::Test
{
protected:
    void Run(const std::function<void()>& inside)
    {
        m_operations.Run(
            [&]
            {
                m_story += '(';
                inside();
                m_story += ')';
            });
    }

    void Refresh() { m_operations.Refresh(); }

    std::string m_story;
    std::function<void()> m_onRefresh; // runs within the next refresh, once

    CLogOperations m_operations{[this]
                                {
                                    m_story += 'R';
                                    if (const auto once = std::exchange(m_onRefresh, nullptr))
                                    {
                                        once();
                                        m_story += 'r';
                                    }
                                }};
};

} // namespace

TEST_F(LogOperationsTest, ARefreshOutsideAnOperationIsDoneAtOnce)
{
    Refresh();
    EXPECT_EQ(m_story, "R");
    Run([] {});
    EXPECT_EQ(m_story, "R()");
}

TEST_F(LogOperationsTest, ARefreshWithinAnOperationFollowsItOnce)
{
    Run(
        [this]
        {
            Refresh();
            Refresh();
        });
    EXPECT_EQ(m_story, "()R");
    Run([] {});
    EXPECT_EQ(m_story, "()R()");
}

TEST_F(LogOperationsTest, ARefreshWithinAnInnerOperationFollowsTheOuterOne)
{
    Run(
        [this]
        {
            Run([this] { Refresh(); });
            Run([] {});
        });
    EXPECT_EQ(m_story, "(()())R");
}

TEST_F(LogOperationsTest, ARefreshFollowsAnOperationThatThrows)
{
    const auto throwing = [this]
    {
        Refresh();
        throw std::runtime_error("the operation");
    };
    EXPECT_THROW(Run(throwing), std::runtime_error);
    EXPECT_EQ(m_story, "(R");
    Refresh();
    EXPECT_EQ(m_story, "(RR") << "no operation runs any more";
}

TEST_F(LogOperationsTest, ARefreshWithinARefreshFollowsIt)
{
    m_onRefresh = [this] { Refresh(); };
    Refresh();
    EXPECT_EQ(m_story, "RrR");
}

TEST_F(LogOperationsTest, ARefreshThatThrowsLeavesNothingBehind)
{
    m_onRefresh = [] { throw std::runtime_error("the refresh"); };
    EXPECT_THROW(Refresh(), std::runtime_error);
    Run([] {});
    Refresh();
    EXPECT_EQ(m_story, "R()R");
}
