#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

class ZPTLogBaseTest : public ::testing::Test
{
protected:
    const LanguageFile m_language;
};

// The limit of detail texts under a language file that holds one text.
std::uint32_t LimitWith(const std::wstring& file)
{
    const LanguageFile language(L"tests\\" + file);
    return PlainLog().m_nInfoTextLimit;
}

class TwoRecords
{
public:
    TwoRecords(std::initializer_list<std::wstring_view> first, std::initializer_list<std::wstring_view> second)
    {
        for (const std::wstring_view field : first)
        {
            m_first.Append(field);
        }
        for (const std::wstring_view field : second)
        {
            m_second.Append(field);
        }
    }

    int Compare(PFNLVCOMPARE compare, int column) const
    {
        return compare(reinterpret_cast<LPARAM>(&m_first), reinterpret_cast<LPARAM>(&m_second), column);
    }

private:
    std::pmr::monotonic_buffer_resource m_memory;
    LogRec m_first{&m_memory};
    LogRec m_second{&m_memory};
};

class LogWithRows : public PlainLog
{
public:
    LogWithRows()
    {
        static constexpr LogInfoRow rows[] = {{IDS_LABEL_THREAT, true}, {0, false}, {IDS_LABEL_TYPE, true}};
        static constexpr UINT titles[] = {IDS_TITLE_VIRUS, IDS_VIRUS_TITLE_2};
        static constexpr LogColumn columns[] = {{IDS_COLUMN_TIME, 70, 0, 0}, {IDS_COLUMN_THREAT, 90, 2, 1}};
        static const LogLayout layout = {.type = LogTypeScan, .titles = titles, .columns = columns, .infoRows = rows};
        Setup(layout);
    }
};

} // namespace

TEST_F(ZPTLogBaseTest, ANewObjectHasNoRecords)
{
    PlainLog log;
    EXPECT_EQ(log.GetLogCount(), 0u);
    EXPECT_EQ(log.GetLogRecord(0), nullptr);
    EXPECT_EQ(log.GetLogText(0, 0), L"");
    EXPECT_FALSE(log.SetListLog()) << "no list is attached";
}

TEST_F(ZPTLogBaseTest, ANewObjectIsSetForTheProviderAndHasNone)
{
    PlainLog log;
    EXPECT_TRUE(log.m_bUseDBMgr);
    EXPECT_EQ(log.m_pIDBManagerProvider, nullptr);
    EXPECT_TRUE(log.m_bRecordDone);
}

TEST_F(ZPTLogBaseTest, RecordsAndFieldsOutOfRangeAreNullAndEmpty)
{
    PlainLog log;
    ASSERT_TRUE(log.PutRecode(L"a|b", CZPTLogBase::AnyLine));
    EXPECT_EQ(log.GetLogText(0, 1), L"b");
    EXPECT_EQ(log.GetLogText(0, 2), L"");
    EXPECT_EQ(log.GetLogText(1, 0), L"");
    EXPECT_EQ(log.GetLogRecord(1), nullptr);
    EXPECT_EQ(log.GetLogText(static_cast<std::size_t>(-1), 0), L"");
}

TEST_F(ZPTLogBaseTest, RecordsStandInTheOrderInWhichTheyWereReadUntilTheLogIsCleared)
{
    PlainLog log;
    for (const wchar_t* const line : {L"old", L"middle", L"new"})
    {
        ASSERT_TRUE(log.PutRecode(line, CZPTLogBase::AnyLine));
    }
    EXPECT_EQ(log.GetLogText(0, 0), L"old");
    EXPECT_EQ(log.GetLogText(2, 0), L"new");
    log.ClearLog();
    EXPECT_EQ(log.GetLogCount(), 0u);
    EXPECT_EQ(log.GetLogRecord(0), nullptr);
    log.ClearLog();
    ASSERT_TRUE(log.PutRecode(L"again", CZPTLogBase::AnyLine));
    EXPECT_EQ(log.GetLogText(0, 0), L"again");
}

TEST_F(ZPTLogBaseTest, String55HoldingZeroNoNumberTooMuchOrMissingGivesALimitOf24)
{
    EXPECT_EQ(LimitWith(L"limit-0.mui"), 24u);
    EXPECT_EQ(LimitWith(L"limit-abc.mui"), 24u);
    EXPECT_EQ(LimitWith(L"limit-99999999999.mui"), 24u);
    EXPECT_EQ(LimitWith(L"limit-missing.mui"), 24u);
}

TEST_F(ZPTLogBaseTest, String55HoldingANumberIsTheLimit)
{
    EXPECT_EQ(LimitWith(L"limit-10.mui"), 10u);
    EXPECT_EQ(std::to_wstring(PlainLog().m_nInfoTextLimit), Text(55));
}

TEST_F(ZPTLogBaseTest, ALimitOf10LeavesATextOf13CharactersAndCutsOneOf14)
{
    const LanguageFile language(L"tests\\limit-10.mui");
    const PlainLog log;
    EXPECT_EQ(log.TruncateText(L"1234567890123"), L"1234567890123");
    EXPECT_EQ(log.TruncateText(L"12345678901234"), L"1234567890...");
    EXPECT_EQ(log.TruncateText(L""), L"");
}

TEST_F(ZPTLogBaseTest, ALimitOf0CutsNothing)
{
    PlainLog log;
    log.m_nInfoTextLimit = 0;
    const std::wstring text(1000, L'x');
    EXPECT_EQ(log.TruncateText(text), text);
}

TEST_F(ZPTLogBaseTest, AnObjectIsUsableWithoutTextsAndImages)
{
    const LanguageFile nothing(L"tests\\limit-missing.mui");
    CZPTLogVir log;
    EXPECT_TRUE(log.PutRecode(L"x|103015|1|x|0|0|6|7|8|9|10|11", CZPTLogBase::AnyLine));
    EXPECT_EQ(log.GetLogText(0, 0), L"10:30");
}

TEST_F(ZPTLogBaseTest, SetupTakesOverTypeExtensionTitlesColumnsAndRows)
{
    const LogWithRows log;
    EXPECT_EQ(log.m_nLogType, 13u);
    EXPECT_EQ(log.m_strExt, L".SCI");
    EXPECT_EQ(log.m_arrTitle, (std::vector<std::wstring>{Text(143), Text(134)}));
    EXPECT_EQ(log.m_arrColumn, (std::vector<std::wstring>{Text(39), Text(81)}));
    EXPECT_EQ(log.m_arrColumnWidth, (std::vector<std::uint32_t>{70, 90}));
    EXPECT_EQ(log.m_arrInfoLabel, (std::vector<std::wstring>{Text(549), L"", Text(550)}));
    EXPECT_EQ(log.m_arrInfoVisible, (std::vector<std::uint32_t>{1, 0, 1}));
}

TEST_F(ZPTLogBaseTest, SetInfoLabelGivesThePageTheRowsThatTheClassHas)
{
    LogWithRows log;
    log.SetInfoLabel(); // no page yet: nothing happens
    InfoPaneDouble pane;
    log.SetInfoDialog(&pane);
    log.SetInfoLabel();
    const std::wstring captions[] = {Text(549), L"", Text(550)};
    for (std::size_t row = 0; row < std::size(captions); ++row)
    {
        EXPECT_EQ(pane[row].caption, captions[row]) << row;
        EXPECT_EQ(pane[row].visible, row != 1) << row;
    }
}

TEST_F(ZPTLogBaseTest, ThePlainComparePairComparesTheFieldOfTheColumnByCodeUnits)
{
    const PlainLog log;
    const TwoRecords records({L"a", L"B", L"same"}, {L"b", L"a", L"same"});
    EXPECT_LT(records.Compare(log.m_pfnCompareUp, 0), 0);
    EXPECT_GT(records.Compare(log.m_pfnCompareDn, 0), 0);
    EXPECT_LT(records.Compare(log.m_pfnCompareUp, 1), 0) << "capital letters come first";
    EXPECT_EQ(records.Compare(log.m_pfnCompareUp, 2), 0);
    EXPECT_EQ(records.Compare(log.m_pfnCompareDn, 2), 0);
    const TwoRecords surrogates({L"\xD83D\xDE00"}, {L"\xFF5E"});
    EXPECT_LT(surrogates.Compare(log.m_pfnCompareUp, 0), 0) << "a surrogate is below U+FF5E";
}

TEST_F(ZPTLogBaseTest, ThePlainComparePairTakesRecordsTooShortForTheColumnForEqual)
{
    const PlainLog log;
    const TwoRecords records({L"a"}, {L"b", L"c"});
    EXPECT_EQ(records.Compare(log.m_pfnCompareUp, 1), 0);
    EXPECT_EQ(records.Compare(log.m_pfnCompareDn, 1), 0);
    EXPECT_EQ(records.Compare(log.m_pfnCompareUp, 2), 0);
    EXPECT_EQ(records.Compare(log.m_pfnCompareUp, -1), 0);
    const TwoRecords empty({}, {L"b"});
    EXPECT_EQ(empty.Compare(log.m_pfnCompareUp, 0), 0);
}

TEST_F(ZPTLogBaseTest, TheBaseLeavesToItsClassesWhatItDoesNotKnow)
{
    PlainLog log;
    std::wstring text = L"before";
    log.GetColumnText(nullptr, text, 0);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(log.GetReadLimit(), 0u);
    EXPECT_FALSE(log.IsBlockRuleActive());
    log.SetLocalAddress(L"192.0.2.1");
    log.SetLogInfo(nullptr);
    log.AddAllowRule();
    EXPECT_EQ(log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseTest, TheQuerySubTypeIsThatOfTheLogsOwnExtension)
{
    std::uint32_t subType = 99;
    EXPECT_TRUE(PlainLog(0, 1, LogTypeScan).GetQueryValueSubType(subType));
    EXPECT_EQ(subType, 12u);
    EXPECT_FALSE(PlainLog(0, 1, LogTypeNone).GetQueryValueSubType(subType));
    EXPECT_EQ(subType, 0u);
}
