// The texts of a record that a search looks at: those that the list and the detail pane show of it, and no others.

#include "framework/ui/kestrix/logs/ShownTexts.h"

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/CategoryService.h"
#include "tests/support/GoldenDayFile.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using Texts = std::set<std::wstring>; // without the empty one

const LogKind& KindOf(const GoldenDayFile& day)
{
    const std::wstring extension(day.extension.begin(), day.extension.end());
    return *std::ranges::find(LogKinds(), extension, &LogKind::extension);
}

Texts SearchedOf(const CZPTLogBase& log, const LogRec& record)
{
    ShownTexts texts;
    log.GetShownTexts(record, texts);
    Texts searched(texts.begin(), texts.end());
    searched.erase(std::wstring());
    return searched;
}

// Whole, as the tool tips have those that are cut.
Texts ShownOf(CZPTLogBase& log, const LogKind& kind, LogRec& record)
{
    Texts shown;
    for (int column = 0; column <= kind.lastColumn; ++column)
    {
        std::wstring text;
        try
        {
            log.GetColumnText(&record, text, column);
        }
        catch (const std::out_of_range&)
        {
            text.clear();
        }
        shown.insert(text);
    }
    InfoPaneDouble pane;
    log.SetInfoDialog(&pane);
    log.SetInfoLabel();
    try
    {
        log.SetLogInfo(&record);
    }
    catch (const std::out_of_range&)
    {
        pane.ClearValues();
    }
    for (std::size_t row = 0; row < CLogInfoPage::InfoRows; ++row)
    {
        shown.insert(pane[row].toolTip.empty() ? pane[row].text : pane[row].toolTip);
    }
    shown.erase(std::wstring());
    return shown;
}

// The service is there for the log that asks it.
class ShownTextsTest : private WithCategoryService, public ::testing::Test
{
protected:
    const LanguageFile m_language;
};

} // namespace

TEST_F(ShownTextsTest, OfEveryRecordOfTheGoldenDaysTheyAreWhatListAndPaneShow)
{
    for (const std::string& name : GoldenDayFile::Names())
    {
        const GoldenDayFile day(name);
        const LogKind& kind = KindOf(day);
        const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
        log->m_bUseDBMgr = day.isFromDatabase;
        for (const std::wstring& line : day.Lines())
        {
            InfoPaneDouble pane; // a log may want one while it reads
            log->SetInfoDialog(&pane);
            if (log->PutRecode(line, CZPTLogBase::AnyLine))
            {
                LogRec& record = *log->GetLogRecord(log->GetLogCount() - 1);
                const Texts searched = SearchedOf(*log, record);
                EXPECT_FALSE(searched.empty()) << name << ", record " << log->GetLogCount();
                EXPECT_EQ(searched, ShownOf(*log, kind, record)) << name << ", record " << log->GetLogCount();
            }
        }
    }
}

// To show a record is traced, keeps its path for exports and makes it the selection of the firewall log.
TEST_F(ShownTextsTest, ToAskForThemChangesAndTracesNothing)
{
    const TraceRecorder trace;
    for (const char* const name : {"spyware-log-from-a-file", "firewall-log-from-a-file"})
    {
        const GoldenDayFile day(name);
        const std::unique_ptr<CZPTLogBase> log = CreateLog(KindOf(day).type);
        log->m_bUseDBMgr = false;
        for (const std::wstring& line : day.AcceptedLines())
        {
            ASSERT_TRUE(log->PutRecode(line, CZPTLogBase::AnyLine));
            LogRec& record = *log->GetLogRecord(log->GetLogCount() - 1);
            const std::vector<std::wstring> fields(record.strData.begin(), record.strData.end());
            const std::wstring whole = log->GetInfoText();
            const std::size_t traces = trace.Texts().size();
            SearchedOf(*log, record);
            EXPECT_EQ(trace.Texts().size(), traces);
            EXPECT_EQ(std::vector<std::wstring>(record.strData.begin(), record.strData.end()), fields);
            EXPECT_EQ(log->GetInfoText(), whole);
        }
    }
}

TEST_F(ShownTextsTest, TheTextsOfTheRecordBeforeGo)
{
    const std::unique_ptr<CZPTLogBase> log = CreateLog(LogTypeVst);
    const LogRec record(std::pmr::new_delete_resource());
    ShownTexts texts;
    texts.Add(L"before");
    log->GetShownTexts(record, texts);
    EXPECT_EQ(std::ranges::count(texts, L"before"), 0);
}
