#include "framework/ui/kestrix/logs/ZPTLogVir.h"

#include "tests/support/LogFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr std::uint32_t RealTime = 0x100000;
constexpr UINT Clean = 0; // stands for the text of "nothing had to be done"
constexpr UINT NoText = 1;

struct ActionRow
{
    std::uint32_t action;
    UINT done;
    UINT failed;
    std::uint32_t doneImage;
    std::uint32_t failedImage;
};

constexpr ActionRow Actions1[] = {
    {0, Clean, Clean, 0, 0},
    {1, 802, 803, 1, 2},
    {2, 804, 805, 1, 3},
    {3, 806, 807, 0, 2},
    {4, 800, 801, 0, 2},
    {25, Clean, Clean, 1, 1},
    {99, Clean, Clean, 1, 1},
    {101, 808, 809, 0, 2},
    {5, NoText, NoText, 2, 2},
    {100, NoText, NoText, 2, 2},
    {0xFFFFFFFF, NoText, NoText, 2, 2},
};

constexpr ActionRow Actions2[] = {
    {0, Clean, Clean, 0, 0},    {1, 802, 803, 1, 2},
    {2, 804, 805, 1, 3},        {4, 800, 801, 0, 2},
    {101, 808, 809, 1, 2},      {3, NoText, NoText, 2, 2},
    {5, NoText, NoText, 2, 2},  {25, NoText, NoText, 2, 2},
    {99, NoText, NoText, 2, 2}, {0xFFFFFFFF, NoText, NoText, 2, 2},
};

struct Event
{
    std::uint32_t source = RealTime;
    std::uint32_t token5 = 0;
    std::uint32_t action1 = 0;
    std::uint32_t result1 = 0;
    std::uint32_t action2 = 0;
    std::uint32_t result2 = 0;
};

bool IsProxy(std::uint32_t source)
{
    return source >= 1 && source <= 3;
}

std::wstring LineOf(const Event& event)
{
    const auto number = [](std::uint32_t value) { return std::to_wstring(static_cast<std::int32_t>(value)) + L"|"; };
    return L"x|103015|" + number(event.source) + L"x|0|" + number(event.token5) +
           (IsProxy(event.source) ? L"6|" : L"6|7|") + number(event.action1) + number(event.result1) +
           number(event.action2) + number(event.result2) + L"detail";
}

UINT CleanText(const Event& event)
{
    return event.source == RealTime && event.token5 != 2 && event.token5 != 4 ? 30 : 317;
}

std::wstring OutcomeText(const ActionRow& row, std::uint32_t result, const Event& event)
{
    const UINT text = result == 1 ? row.done : row.failed;
    return text == NoText ? std::wstring() : Text(text == Clean ? CleanText(event) : text);
}

std::string StoryOf(const Event& event)
{
    return "source " + std::to_string(event.source) + ", token 5 " + std::to_string(event.token5) + ", action 1 " +
           std::to_string(event.action1) + " result " + std::to_string(event.result1) + ", action 2 " +
           std::to_string(event.action2) + " result " + std::to_string(event.result2);
}

class ZPTLogVirTest : public LogFixture<CZPTLogVir>
{
protected:
    using LogFixture::Put;

    const LogRec& Put(const Event& event) { return Put(LineOf(event)); }

    void ExpectSecond(const ActionRow& first, const ActionRow& second, const Event& event)
    {
        const LogRec& record = Put(event);
        EXPECT_EQ(record.Field(5), Text(first.failed)) << StoryOf(event);
        EXPECT_EQ(record.Field(6), OutcomeText(second, event.result2, event)) << StoryOf(event);
        EXPECT_EQ(record.nImage, event.result2 == 1 ? second.doneImage : second.failedImage) << StoryOf(event);
    }

    std::wstring TypeOf(std::uint32_t source, std::uint32_t token5)
    {
        return std::wstring(Put(Event{source, token5}).Field(2));
    }
};

} // namespace

TEST_F(ZPTLogVirTest, AScanFormLineOfTheProvider)
{
    const LogRec& record = Put(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0|detail");
    EXPECT_EQ(record.Field(0), L"10:30");
    EXPECT_EQ(record.Field(1), Text(147));
    EXPECT_EQ(record.Field(2), Text(150));
    EXPECT_EQ(record.Field(3), L"name");
    EXPECT_EQ(record.Field(4), L"C:\\a.exe");
    EXPECT_EQ(record.Field(5), Text(802));
    EXPECT_EQ(record.Field(6), L"");
    EXPECT_EQ(record.Field(7), L"detail");
    EXPECT_EQ(record.strData.size(), 8u);
    EXPECT_EQ(record.nImage, 1u);
    EXPECT_EQ(Cell(record, 1), Text(802));
}

TEST_F(ZPTLogVirTest, TheSameLineInFileModeWithoutTheLastTokenIsValidAndHasNoField7)
{
    UseFiles();
    const LogRec& record = Put(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0");
    EXPECT_EQ(record.strData.size(), 7u);
    EXPECT_EQ(record.Field(5), Text(802));
    EXPECT_EQ(record.strData.back(), L"");
}

TEST_F(ZPTLogVirTest, AProxyFormLineDecodesTokens5And6)
{
    const LogRec& record = Put(L"x|235959|1|x|name|50%%|a%Ib|1|1|0|0|detail");
    EXPECT_EQ(record.Field(0), L"23:59");
    EXPECT_EQ(record.Field(1), Text(144));
    EXPECT_EQ(record.Field(2), Text(152));
    EXPECT_EQ(record.Field(3), L"name");
    EXPECT_EQ(record.Field(4), L"a|b \"50%\"");
    EXPECT_EQ(record.Field(5), Text(802));
    EXPECT_EQ(record.Field(6), L"");
    EXPECT_EQ(record.Field(7), L"detail");
}

TEST_F(ZPTLogVirTest, TheScanFormAndTheNameOfTheProxyFormAreNotDecoded)
{
    EXPECT_EQ(Put(L"x|103015|1|x|a%Ib|0|6|1|1|0|0|d").Field(3), L"a%Ib");
    const LogRec& record = Put(L"x|103015|1048576|x|0|0|a%Ib|50%%|1|1|0|0|d%I");
    EXPECT_EQ(record.Field(3), L"a%Ib");
    EXPECT_EQ(record.Field(4), L"50%%");
    EXPECT_EQ(record.Field(7), L"d%I");
}

TEST_F(ZPTLogVirTest, ARecordOfTheProxyFormUsesNothingOfTheOneBeforeIt)
{
    Put(L"x|103015|1|x|old|old|old|1|1|0|0|d");
    EXPECT_EQ(Put(L"x|103015|1|x||||1|1|0|0|d").Field(4), L" \"\"");
    EXPECT_EQ(m_log.GetLogText(1, 3), L"");
}

TEST_F(ZPTLogVirTest, EverySourceHasItsTextAndUnknownOnesTwoBlanks)
{
    const std::pair<std::uint32_t, UINT> sources[] = {{1, 144},        {2, 145},        {3, 146},
                                                      {0x100000, 147}, {0x100001, 148}, {0x100003, 149}};
    for (const auto& [source, text] : sources)
    {
        EXPECT_EQ(Put(Event{source}).Field(1), Text(text)) << source;
    }
    for (const std::uint32_t source : {0u, 4u, 0x100002u, 0x100004u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(Put(Event{source}).Field(1), L"  ") << source;
    }
}

TEST_F(ZPTLogVirTest, TheTypeFollowsFromTheSourceAndToken5)
{
    for (const std::uint32_t token5 : {0u, 1u, 2u, 77u})
    {
        EXPECT_EQ(TypeOf(1, token5), Text(152));
        EXPECT_EQ(TypeOf(2, token5), Text(152));
        EXPECT_EQ(TypeOf(3, token5), Text(153));
        for (const std::uint32_t source : {0x100000u, 0x100001u, 0x100003u})
        {
            EXPECT_EQ(TypeOf(source, token5), token5 == 0 ? Text(150) : token5 == 1 ? Text(151) : L"  ") << source;
        }
        for (const std::uint32_t source : {0u, 4u, 0x100002u})
        {
            EXPECT_EQ(TypeOf(source, token5), L"  ") << source;
        }
    }
}

TEST_F(ZPTLogVirTest, EveryRowOfTheFirstActionWithEveryResultInEveryForm)
{
    for (const std::uint32_t source : {1u, 2u, 3u, 0x100000u, 0x100001u, 0x100003u, 0u})
    {
        for (const ActionRow& row : Actions1)
        {
            for (const std::uint32_t result : {0u, 1u, 2u, 0xFFFFFFFFu})
            {
                if ((row.action == 2 || row.action == 3) && result != 1)
                {
                    continue; // the second action counts: the next test
                }
                const Event event{source, 0, row.action, result, 1, 1};
                const LogRec& record = Put(event);
                EXPECT_EQ(record.Field(5), OutcomeText(row, result, event)) << StoryOf(event);
                EXPECT_EQ(record.Field(6), L"") << StoryOf(event);
                EXPECT_EQ(record.nImage, result == 1 ? row.doneImage : row.failedImage) << StoryOf(event);
            }
        }
    }
}

TEST_F(ZPTLogVirTest, EveryRowOfTheSecondActionAfterAFailedFirstOneOf2Or3)
{
    for (const ActionRow& first : {Actions1[2], Actions1[3]})
    {
        for (const ActionRow& row : Actions2)
        {
            for (const std::uint32_t source : {1u, 3u, 0x100000u, 0x100001u, 0u})
            {
                for (const std::uint32_t result : {0u, 1u, 2u})
                {
                    ExpectSecond(first, row, {source, 0, first.action, 0, row.action, result});
                    ExpectSecond(first, row, {source, 0, first.action, 2, row.action, result});
                }
            }
        }
    }
}

TEST_F(ZPTLogVirTest, AFailedQuarantineFollowedByARename)
{
    const LogRec& record = Put(Event{RealTime, 0, 2, 0, 1, 1});
    EXPECT_EQ(record.Field(5), Text(805));
    EXPECT_EQ(record.Field(6), Text(802));
    EXPECT_EQ(record.nImage, 1u);
    EXPECT_EQ(Cell(record, 1), Text(802));
}

TEST_F(ZPTLogVirTest, AFailedCleaningFollowedByAction3HasNoSecondTextAndIcon2)
{
    const LogRec& record = Put(Event{RealTime, 0, 3, 0, 3, 0});
    EXPECT_EQ(record.Field(6), L"");
    EXPECT_EQ(record.nImage, 2u);
    EXPECT_EQ(Cell(record, 1), Text(807));
}

TEST_F(ZPTLogVirTest, TheCleanTextFollowsFromTheSourceAndToken5)
{
    EXPECT_EQ(Put(Event{0x100000, 2}).Field(5), Text(317));
    EXPECT_EQ(Put(Event{0x100000, 4}).Field(5), Text(317));
    for (const std::uint32_t token5 : {0u, 1u, 3u, 5u})
    {
        EXPECT_EQ(Put(Event{0x100000, token5}).Field(5), Text(30)) << token5;
        EXPECT_EQ(Put(Event{0x100001, token5}).Field(5), Text(317)) << token5;
        EXPECT_EQ(Put(Event{3, token5}).Field(5), Text(317)) << token5;
    }
    EXPECT_EQ(Put(Event{0x100000, 2, 25}).Field(5), Text(317));
    EXPECT_EQ(Put(Event{0x100000, 0, 3, 0, 0, 0}).Field(6), Text(30));
}

TEST_F(ZPTLogVirTest, ANumberStopsAtItsFirstWrongCharacterAndATokenThatIsNoneCountsAs0)
{
    EXPECT_EQ(Put(L"x|103015|1048576x|x|0|1 1|n|p| 1z|1z|0|0|d").Field(5), Text(802));
    EXPECT_EQ(m_log.GetLogText(0, 2), Text(151));
    EXPECT_EQ(Put(L"x|103015||x|0||n|p|none|none|||d").nImage, 0u);
    EXPECT_EQ(m_log.GetLogText(1, 1), L"  ");
}

TEST_F(ZPTLogVirTest, AProviderLineWithoutItsDetailTokenIsInvalid)
{
    EXPECT_FALSE(Accepts(L"x|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0"));
    EXPECT_FALSE(Accepts(L"x|103015|1|x|0|0|6|1|1|0|0"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogVirTest, AFileLineIsValidFromItsSecondResultOnAndNotBefore)
{
    UseFiles();
    EXPECT_TRUE(Accepts(L"x|103015|1|x|0|0|6|1|1|0|0"));
    EXPECT_FALSE(Accepts(L"x|103015|1|x|0|0|6|1|1|0"));
    EXPECT_TRUE(Accepts(L"x|103015|1048576|x|0|0|6|7|1|1|0|0"));
    EXPECT_FALSE(Accepts(L"x|103015|1048576|x|0|0|6|7|1|1|0"));
}

TEST_F(ZPTLogVirTest, AFileLineThatHasADetailTokenShowsIt)
{
    UseFiles();
    EXPECT_EQ(Put(L"x|103015|1|x|0|0|6|1|1|0|0|detail").Field(7), L"detail");
}

// The detail stands until another record brings one, so a file line after a provider line shows the old one.
TEST_F(ZPTLogVirTest, TheDetailOfARecordStaysForALineThatBringsNone)
{
    Put(Event{});
    UseFiles();
    EXPECT_EQ(Put(L"x|103015|1|x|0|0|6|1|1|0|0").Field(7), L"detail");
    EXPECT_EQ(Put(L"x|103015|1|x|0|0|6|1|1|0|0|").strData.size(), 7u) << "an empty token is a detail too";
}

TEST_F(ZPTLogVirTest, TokensBehindTheDetailAreIgnored)
{
    const LogRec& record = Put(LineOf(Event{}) + L"|more|and|more");
    EXPECT_EQ(record.strData.size(), 8u);
    EXPECT_EQ(record.Field(7), L"detail");
}

TEST_F(ZPTLogVirTest, WhatAnInvalidLineLeftDoesNotShowInTheNextRecord)
{
    EXPECT_FALSE(Accepts(L"x|103015|1048576|x|0|0|6|7|2|1|1|1"));
    EXPECT_EQ(Put(Event{RealTime, 0, 2, 0, 1, 0}).Field(6), Text(803));
    EXPECT_EQ(m_log.GetLogText(0, 5), Text(805));
}

TEST_F(ZPTLogVirTest, TextsThatMeanDifferentThingsDiffer)
{
    for (const std::vector<UINT>& texts : {std::vector<UINT>{30, 317, 800, 801, 802, 803, 804, 805, 806, 807, 808, 809},
                                           {144, 145, 146, 147, 148, 149},
                                           {150, 151, 152, 153}})
    {
        std::vector<std::wstring> values;
        std::ranges::transform(texts, std::back_inserter(values), &Text);
        std::ranges::sort(values);
        EXPECT_EQ(std::ranges::adjacent_find(values), values.end());
    }
}
