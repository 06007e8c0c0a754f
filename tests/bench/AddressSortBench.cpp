// Sorting the rows of the firewall log by an address, beside the same list sorted by one integer of each row.

#include "framework/ui/kestrix/logs/FirewallAddress.h"
#include "framework/ui/kestrix/logs/ZPTLogPFW.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/ListWindow.h"

#include <vector>

namespace
{

constexpr double Budget = 2;
constexpr std::uint64_t Records = 100'000;

struct AddressColumn
{
    const char* name;
    int column;
    std::size_t field;
};

constexpr AddressColumn AddressColumns[] = {{"local", 2, 4}, {"remote", 4, 6}};

// Rows in the order in which a page shows them first, made anew before each sort.
void FillRows(CSortListCtrl& list, const std::vector<LPARAM>& rows)
{
    list.DeleteAllItems();
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.pszText = LPSTR_TEXTCALLBACKW;
    for (const LPARAM row : rows)
    {
        item.lParam = row;
        Require(list.InsertItem(item) != -1, "the list missed rows");
        ++item.iItem;
    }
}

int CALLBACK CompareIntegers(LPARAM first, LPARAM second, LPARAM)
{
    const auto left = *reinterpret_cast<const std::uint64_t*>(first);
    const auto right = *reinterpret_cast<const std::uint64_t*>(second);
    return left < right ? -1 : left > right ? 1 : 0;
}

Figure SortBy(const AddressColumn& address, CZPTLogPFW& log, CSortListCtrl& list)
{
    std::vector<std::uint64_t> integers;
    std::vector<LPARAM> records;
    for (std::size_t i = log.GetLogCount(); i-- > 0;)
    {
        records.push_back(reinterpret_cast<LPARAM>(log.GetLogRecord(i)));
        integers.push_back(AddressOrder(log.GetLogText(i, address.field)));
    }
    std::vector<LPARAM> plain;
    for (const std::uint64_t& integer : integers)
    {
        plain.push_back(reinterpret_cast<LPARAM>(&integer));
    }
    FillRows(list, plain);
    const std::vector<double> times = MedianTimes({
        {[&] { Require(list.SortItems(&CompareIntegers, 0), "the list is not sorted"); },
         [&] { FillRows(list, records); }},
        {[&] { Require(list.SortItems(log.m_pfnCompareUp, address.column), "the list is not sorted"); },
         [&] { FillRows(list, plain); }},
    });
    return {std::string("list: 100,000 firewall rows sorted by the ") + address.name + " address", times[1], "ms",
            times[0], Budget};
}

} // namespace

// The window is hidden; nothing is painted.
Figures BenchAddressSort()
{
    const BenchFile file(L"PFG", Records);
    ListWindow window;
    CZPTLogPFW log;
    log.m_bUseDBMgr = false;
    log.SetLocalAddress(L"192.0.2.10");
    Require(log.ReadLogW(file.Path()) && log.GetLogCount() == Records, "the log missed records");
    window.m_list.SetRedraw(FALSE);
    Figures figures;
    for (const AddressColumn& address : AddressColumns)
    {
        figures.push_back(SortBy(address, log, window.m_list));
    }
    return figures;
}
