// The rows of a log in the page's list, beside what a program does that has the records alone: sorting them, freeing
// them and looking at their texts.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/app/page/RecordSearch.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/FindTextDialog.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/ListWindow.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr double ListBudget = 1.5;
constexpr double SortBudget = 1.2;
constexpr double ClearBudget = 1.5;
constexpr double FindBudget = 2;
constexpr std::uint64_t FirewallRecords = 100'000; // which are sorted by addresses too
constexpr int SortRounds = 3;                      // a sort takes seconds, and what it has to do is the same each time

// A log with the records of a file, and a list that shows them. The window is hidden, as the page is when it shows its
// first day; nothing is painted.
class ShownLog
{
public:
    ShownLog(std::uint32_t type, std::uint64_t records)
        : m_file(FindLogKind(type)->extension, records), m_log(CreateLog(type))
    {
        m_log->m_bUseDBMgr = false;
        m_log->SetLocalAddress(L"192.0.2.10");
        m_log->SetListCtrl(&m_window.m_list);
        m_log->SetListColumn();
        Read();
    }

    void Read() { Require(m_log->ReadLogW(m_file.Path()) && m_log->GetLogCount() != 0, "the log missed records"); }

    // As the page shows a day that it has loaded.
    void Show()
    {
        List().SetRedraw(FALSE);
        Fill();
        List().SortHeader().SetSortArrow(0, 0);
        Require(List().SortItems(m_log->m_pfnCompareDn, 0), "the list of the log is not sorted");
        List().SetRedraw(TRUE);
        List().Invalidate();
        Require(Count() == m_log->GetLogCount(), "the list of the log missed rows");
    }

    void Fill()
    {
        List().DeleteAllItems();
        Require(m_log->SetListLog(), "the list of the log missed rows");
    }

    // The records in the order of the rows of a list that was just filled.
    std::vector<LPARAM> Records() const
    {
        std::vector<LPARAM> records;
        for (std::size_t i = m_log->GetLogCount(); i-- > 0;)
        {
            records.push_back(reinterpret_cast<LPARAM>(m_log->GetLogRecord(i)));
        }
        return records;
    }

    std::size_t Count() const { return static_cast<std::size_t>(m_window.m_list.GetItemCount()); }

    CSortListCtrl& List() { return m_window.m_list; }

    CZPTLogBase& Log() { return *m_log; }

private:
    const BenchFile m_file;
    ListWindow m_window;
    const std::unique_ptr<CZPTLogBase> m_log;
};

void SortStably(std::vector<LPARAM>& records, PFNLVCOMPARE compare, LPARAM column)
{
    std::ranges::stable_sort(records, [=](LPARAM first, LPARAM second) { return compare(first, second, column) < 0; });
}

Figure FillAndSort(std::uint64_t records, const char* name)
{
    ShownLog log(LogTypeVirus, records);
    std::vector<LPARAM> sorted = log.Records();
    const std::vector<double> times = MedianTimes({
        {[&] { SortStably(sorted, log.Log().m_pfnCompareDn, 0); }},
        {[&] { log.Show(); }, [&] { log.List().DeleteAllItems(); }},
    });
    return {std::string("list: ") + name + " rows and their first sort", times[1], "ms", times[0], ListBudget};
}

Figure SortBy(ShownLog& log, const std::string& name, int column, PFNLVCOMPARE compare)
{
    const std::vector<LPARAM> fresh = log.Records();
    std::vector<LPARAM> sorted = fresh;
    log.Fill();
    const std::vector<double> times = MedianTimes(
        {
            {[&] { SortStably(sorted, compare, column); }},
            {[&] { Require(log.List().SortItems(compare, column), "the list is not sorted"); },
             [&]
             {
                 for (std::size_t i = 0; i < sorted.size(); i += 1'000)
                 {
                     Require(log.List().GetItemData(static_cast<int>(i)) == sorted[i], "the list is sorted otherwise");
                 }
                 sorted = fresh;
                 log.Fill();
             }},
        },
        SortRounds);
    return {"sort: " + name + " by column " + std::to_string(column + 1), times[1], "ms", times[0], SortBudget};
}

// By each column, both ways.
void SortByAll(ShownLog& log, const std::string& name, Figures& figures)
{
    for (int column = 0; column < log.List().SortHeader().GetItemCount(); ++column)
    {
        figures.push_back(SortBy(log, name + " up", column, log.Log().m_pfnCompareUp));
        figures.push_back(SortBy(log, name + " down", column, log.Log().m_pfnCompareDn));
    }
}

// One pass over the texts: each character of each field is looked at once, in the order of the rows.
void PassOverTexts(const std::vector<LPARAM>& records)
{
    for (const LPARAM record : records)
    {
        for (const std::wstring_view text : reinterpret_cast<const LogRec*>(record)->strData)
        {
            Require(text.find(L'\n') == text.npos, "a text of the log has a line end");
        }
    }
}

// A text that begins as many do, and that no record has.
void FindNothing(ShownLog& log)
{
    CRecordSearch search(log.Log(), {.text = L"trojan.that.is.nowhere"});
    const auto isWanted = [&](int row)
    { return search.IsIn(reinterpret_cast<const LogRec*>(log.List().RowData(row))); };
    Require(FindRow(static_cast<int>(log.Count()), FoundRow::None, true, isWanted).row == FoundRow::None,
            "a record has the text");
}

Figure Find(const LogKind& kind)
{
    ShownLog log(kind.type, BenchFile::Records);
    log.Fill();
    const std::vector<LPARAM> records = log.Records();
    const std::vector<double> times = MedianTimes({
        {[&] { PassOverTexts(records); }},
        {[&] { FindNothing(log); }},
    });
    return {"find: nothing in a million " + Narrow(kind.extension) + " records", times[1], "ms", times[0], FindBudget};
}

} // namespace

Figures BenchFind()
{
    return {Find(*FindLogKind(LogTypeVirus)), Find(*FindLogKind(LogTypeSpyware)), Find(*FindLogKind(LogTypeFirewall))};
}

Figures BenchList()
{
    return {FillAndSort(100'000, "100,000"), FillAndSort(1'000'000, "1,000,000")};
}

Figures BenchSort()
{
    Figures figures;
    {
        ShownLog log(LogTypeVirus, BenchFile::Records);
        SortByAll(log, "1,000,000 rows", figures);
    }
    ShownLog log(LogTypeFirewall, FirewallRecords);
    SortByAll(log, "100,000 firewall rows", figures);
    return figures;
}

Figures BenchClear()
{
    ShownLog log(LogTypeVirus, BenchFile::Records);
    log.Show();
    const std::unique_ptr<CZPTLogBase> records = CreateLog(LogTypeVirus);
    records->m_bUseDBMgr = false;
    const BenchFile file(L"VLG");
    const auto read = [&] { Require(records->ReadLogW(file.Path()), "the log missed records"); };
    read();
    const std::vector<double> times = MedianTimes({
        {[&] { records->ClearLog(); }, read},
        {[&] { log.Log().ClearLog(); },
         [&]
         {
             log.Read();
             log.Show();
         }},
    });
    return {{"clear: a day of 1,000,000 rows", times[1], "ms", times[0], ClearBudget}};
}
