// The rows of a log in the page's list, made as the page does it and sorted as it does when they are out of order,
// beside the same rows in a plain list.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"
#include "tests/support/ListWindow.h"

namespace
{

constexpr double Budget = 1.5;
constexpr std::uint64_t Records = 100'000;
constexpr int Columns = 3;

void ShowLog(CZPTLogVir& log, CSortListCtrl& list)
{
    list.SetRedraw(FALSE);
    Require(log.SetListLog() && list.GetItemCount() == Records, "the list of the log missed rows");
    list.SortHeader().SetSortArrow(0, 0);
    Require(list.SortItems(log.m_pfnCompareDn, 0), "the list of the log is not sorted");
    list.SetRedraw(TRUE);
    list.Invalidate();
}

// A window with a report list in it as a program has it that uses the system alone: no object sees their messages.
class PlainList
{
public:
    PlainList()
    {
        RegisterCommonControls();
        m_frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
        m_list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, 0, 0, 600,
                                 400, m_frame, nullptr, nullptr, nullptr);
        Require(m_list != nullptr, "there is no plain list");
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = 100;
        for (int i = 0; i < Columns; ++i)
        {
            Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
        }
        Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    }

    ~PlainList() { DestroyWindow(m_frame); }

    PlainList(const PlainList&) = delete;
    PlainList& operator=(const PlainList&) = delete;

    void Fill()
    {
        Send(WM_SETREDRAW, FALSE);
        Send(LVM_SETITEMCOUNT, Records);
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_IMAGE;
        item.pszText = LPSTR_TEXTCALLBACKW;
        for (item.lParam = Records; item.lParam > 0; --item.lParam, ++item.iItem)
        {
            Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        Require(Send(LVM_GETITEMCOUNT, 0) == Records, "the plain list missed rows");
        Require(Send(LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(&CompareDown)) != 0, "the plain list is not sorted");
        Send(WM_SETREDRAW, TRUE);
        InvalidateRect(m_list, nullptr, TRUE);
    }

    void Clear() { Send(LVM_DELETEALLITEMS, 0); }

private:
    static int CALLBACK CompareDown(LPARAM first, LPARAM second, LPARAM)
    {
        return first < second ? 1 : first > second ? -1 : 0;
    }

    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam = 0)
    {
        return SendMessageW(m_list, message, wParam, lParam);
    }

    HWND m_frame;
    HWND m_list;
};

} // namespace

// Both windows are hidden, as the page is when it shows its first day; nothing is painted.
Figures BenchList()
{
    const BenchFile file(L"VLG", Records);
    ListWindow window;
    CZPTLogVir log;
    log.m_bUseDBMgr = false;
    log.SetListCtrl(&window.m_list);
    log.SetListColumn();
    Require(log.ReadLogW(file.Path()) && log.GetLogCount() == Records, "the log missed records");
    PlainList plain;
    const std::vector<double> times = MedianTimes({
        {[&] { plain.Fill(); }, [&] { plain.Clear(); }},
        {[&] { ShowLog(log, window.m_list); }, [&] { window.m_list.DeleteAllItems(); }},
    });
    return {{"list: 100,000 rows and their first sort", times[1], "ms", times[0], Budget}};
}
