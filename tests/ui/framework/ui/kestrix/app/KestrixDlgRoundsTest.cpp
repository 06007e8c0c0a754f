// A hundred rounds through all kinds of log in one page: what a switch takes, the next one gives back.

#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "resource/resource.h"
#include "tests/support/AllocationWatch.h"
#include "tests/support/CategoryService.h"
#include "tests/support/DebugScale.h"
#include "tests/support/GoldenDayFile.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>
#include <map>

namespace
{

// A database with a day of each kind.
class DatabaseOfAllKinds : public DatabaseDouble
{
public:
    DatabaseOfAllKinds()
    {
        AddDay(2026, 11, 20);
        for (const std::string& name : GoldenDayFile::Names())
        {
            const GoldenDayFile day(name);
            const std::wstring extension(day.extension.begin(), day.extension.end());
            const LogKind& kind = *std::ranges::find(LogKinds(), extension, &LogKind::extension);
            for (const std::wstring& line : day.isFromDatabase ? day.AcceptedLines() : std::vector<std::wstring>())
            {
                m_mapLines[kind.querySubType].Add(line);
            }
        }
    }

    HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                       std::uint32_t flags, const void* request) override
    {
        m_arrQuery.clear(); // it is not to grow
        return query == OrlQueryDays ? DatabaseDouble::QueryValue(kind, query, logSubType, result, flags, request)
                                     : (*result = m_mapLines.at(logSubType).Address(), m_linesStatus);
    }

private:
    std::map<std::uint32_t, ProviderAnswer> m_mapLines;
};

class KestrixDlgRoundsTest : protected WithCategoryService, public PageTest
{
protected:
    KestrixDlgRoundsTest()
    {
        m_registry.SetNumber(L"Software\\Veldrane\\Zeptara\\17\\Installer", L"FirewallAP", 1);
        m_app.m_pIDBManagerProvider = &m_allKinds;
        m_page.m_bIsLocal = true;
        m_page.m_pParentForm = &m_form;
    }

    // Turns to each log, sorts its records and tells the first.
    void GoRound()
    {
        const LRESULT logs = Item(IDC_LOG_TYPE).SendMessage(CB_GETCOUNT);
        for (LRESULT log = 0; log < logs; ++log)
        {
            Item(IDC_LOG_TYPE).SendMessage(CB_SETCURSEL, static_cast<WPARAM>(log));
            m_page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_VIEW, BN_CLICKED));
            ClickHeader(0);
            ClickRow(0);
            m_nRows += m_list.GetItemCount();
        }
        m_service.Controller().m_calls.clear(); // nor is what the service notes
    }

    const RegistrySandbox m_registry;
    DatabaseOfAllKinds m_allKinds;
    CLogFormDlg m_form;
    int m_nRows = 0; // shown so far
};

} // namespace

TEST_F(KestrixDlgRoundsTest, AHundredRoundsThroughAllLogsLeaveHandlesAndMemoryAsTheyWere)
{
    const int rounds = static_cast<int>(Scaled(100));
    const AllocationWatch memory;
    Open({});
    ASSERT_EQ(Item(IDC_LOG_TYPE).SendMessage(CB_GETCOUNT), static_cast<LRESULT>(LogKinds().size()));
    GoRound();
    m_parent.ShowWindow(SW_HIDE); // to paint a log takes many times as long as to turn to it
    GoRound();                    // what is kept for good is there now
    const int rowsOfARound = m_nRows / 2;
    ASSERT_GT(rowsOfARound, static_cast<int>(LogKinds().size()));
    const auto handles = LiveHandles::All();
    const long blocks = memory.BlocksOut();
    for (int round = 0; round < rounds; ++round)
    {
        GoRound();
    }
    EXPECT_EQ(m_nRows, (rounds + 2) * rowsOfARound);
    EXPECT_EQ(LiveHandles::All(), handles);
    EXPECT_EQ(memory.BlocksOut(), blocks);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}
