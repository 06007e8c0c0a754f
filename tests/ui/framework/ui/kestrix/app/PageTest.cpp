#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include "resource/resource.h"

#include <array>

std::wstring Lines(std::initializer_list<std::wstring> lines)
{
    std::wstring text;
    for (const std::wstring& line : lines)
    {
        text += line + L"\r\n";
    }
    return text;
}

std::wstring DateText(WORD year, WORD month, WORD day)
{
    SYSTEMTIME time{};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    std::array<wchar_t, 80> text{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text.data(), static_cast<int>(text.size()));
    return text.data();
}

LOGFONTW FontOf(const CWindow& control)
{
    LOGFONTW font{};
    GetObjectW(control.GetFont(), sizeof font, &font);
    return font;
}

PageTest::PageTest()
{
    m_app.m_pIDBManagerProvider = &m_database;
    m_parent.Create(L"STATIC", {}, WS_POPUP | WS_VISIBLE, {0, 0, 800, 600}, nullptr, 0);
    m_page.m_nLogType = LogTypeVirus;
    m_page.m_bLogOnly = true;
    m_page.m_pHost = &m_app;
}

void PageTest::Open(const std::wstring& path)
{
    m_page.m_strLogPath = path;
    ASSERT_TRUE(m_page.Create(IDD_LOG_PAGE, &m_parent));
    m_list.Attach(Item(IDC_RECORD_LIST));
}

void PageTest::OpenDay(std::initializer_list<std::wstring> lines)
{
    const std::wstring path = m_folder.File(L"20261120.VLG");
    WriteUtf16(path, Lines(lines));
    Open(path);
}

Texts PageTest::Dates() const
{
    CListBox box;
    box.Attach(Item(IDC_DATE_LIST));
    Texts dates;
    for (int i = 0; i < box.GetCount(); ++i)
    {
        dates.push_back(box.GetText(i));
    }
    return dates;
}

Texts PageTest::Cells(int row) const
{
    Texts cells;
    for (int column = 0; column < 3; ++column)
    {
        cells.push_back(m_list.GetItemText(row, column));
    }
    return cells;
}

Texts PageTest::Column(int column) const
{
    Texts cells;
    for (int row = 0; row < m_list.GetItemCount(); ++row)
    {
        cells.push_back(m_list.GetItemText(row, column));
    }
    return cells;
}

void PageTest::SelectRow(int row)
{
    m_list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void PageTest::ClickRow(int row)
{
    SelectRow(row);
    NMITEMACTIVATE click{};
    click.iItem = row;
    Notify(IDC_RECORD_LIST, static_cast<UINT>(NM_CLICK), click);
}

void PageTest::ClickHeader(int column)
{
    const HWND header = m_list.GetHeaderCtrl();
    NMHEADERW click{};
    click.hdr = {header, static_cast<UINT_PTR>(::GetDlgCtrlID(header)), static_cast<UINT>(HDN_ITEMCLICKW)};
    click.iItem = column;
    m_list.SendMessage(WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

void PageTest::SelectDate(int index)
{
    Item(IDC_DATE_LIST).SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index));
    m_page.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DATE_LIST, LBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(Item(IDC_DATE_LIST).GetSafeHwnd()));
}

void PageTest::ReleaseKey(HWND target, WPARAM key)
{
    MSG message{};
    message.hwnd = target;
    message.message = WM_KEYUP;
    message.wParam = key;
    m_page.PreTranslateMessage(message);
}

int PageTest::Arrow(int column) const
{
    HDITEMW item{};
    item.mask = HDI_IMAGE | HDI_FORMAT;
    SendMessageW(m_list.GetHeaderCtrl(), HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    return (item.fmt & HDF_IMAGE) != 0 ? item.iImage : -1;
}
