#include "tests/e2e/Viewer.h"

#include "resource/resource.h"
#include "tests/e2e/Input.h"
#include "tests/support/LanguageFile.h"

#include <commctrl.h>

#include <array>
#include <stdexcept>

namespace
{

// A block in the memory of another process, for messages that carry a pointer.
class RemoteBlock
{
public:
    explicit RemoteBlock(HANDLE process) : m_process(process)
    {
        m_address = VirtualAllocEx(process, nullptr, Size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
        if (m_address == nullptr)
        {
            throw std::runtime_error("no memory in the viewer");
        }
    }

    ~RemoteBlock() { VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE); }

    RemoteBlock(const RemoteBlock&) = delete;
    RemoteBlock& operator=(const RemoteBlock&) = delete;

    void* Address(std::size_t offset = 0) const { return static_cast<char*>(m_address) + offset; }

    template <class Value>
    void Write(const Value& value) const
    {
        WriteProcessMemory(m_process, m_address, &value, sizeof value, nullptr);
    }

    template <class Value>
    Value Read(std::size_t offset = 0) const
    {
        Value value{};
        ReadProcessMemory(m_process, Address(offset), &value, sizeof value, nullptr);
        return value;
    }

private:
    static constexpr std::size_t Size = 4096;

    HANDLE m_process;
    void* m_address;
};

} // namespace

std::wstring FileCommandLine(int logCode, const std::wstring& path)
{
    return L"File%|" + std::to_wstring(logCode) + L"%|%|" + path + L"%|%|0";
}

HWND FormItem(HWND form, int control)
{
    for (HWND child = GetWindow(form, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
    {
        const HWND item = GetDlgCtrlID(child) == control ? child : GetDlgItem(child, control);
        if (item != nullptr)
        {
            return item;
        }
    }
    return nullptr;
}

DWORD CloseForm(const Process& viewer, HWND form)
{
    WaitUntil(
        [&]
        {
            PostMessageW(GetDlgItem(form, IDC_FORM_CLOSE), BM_CLICK, 0, 0);
            return viewer.HasEnded(2000);
        });
    return viewer.ExitCode(0);
}

Viewer::Viewer(const std::wstring& arguments, const std::wstring& program)
    : m_process(program, arguments), m_form(m_process.Window(Text(IDS_FORM_TITLE)))
{
}

HWND Viewer::Item(int control) const
{
    return FormItem(m_form, control);
}

std::wstring Viewer::TextOf(int control) const
{
    std::array<wchar_t, 1024> text{};
    Ask(Item(control), WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return text.data();
}

bool Viewer::IsEnabled(int control) const
{
    return IsWindowEnabled(Item(control)) != FALSE;
}

std::vector<std::wstring> Viewer::Dates() const
{
    const HWND list = Item(IDC_DATE_LIST);
    std::vector<std::wstring> dates;
    for (LRESULT i = 0; i < Ask(list, LB_GETCOUNT); ++i)
    {
        std::array<wchar_t, 256> text{};
        Ask(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
        dates.emplace_back(text.data());
    }
    return dates;
}

int Viewer::SelectedDate() const
{
    return static_cast<int>(Ask(Item(IDC_DATE_LIST), LB_GETCURSEL));
}

HWND Viewer::List() const
{
    return Item(IDC_RECORD_LIST);
}

int Viewer::RowCount() const
{
    return static_cast<int>(Ask(List(), LVM_GETITEMCOUNT));
}

std::wstring Viewer::Cell(int row, int column) const
{
    using CellText = std::array<wchar_t, 512>;
    const RemoteBlock block(m_process.Handle());
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = static_cast<wchar_t*>(block.Address(sizeof item));
    item.cchTextMax = static_cast<int>(std::tuple_size_v<CellText>);
    block.Write(item);
    Ask(List(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(block.Address()));
    return block.Read<CellText>(sizeof item).data();
}

std::vector<std::wstring> Viewer::Column(int column) const
{
    std::vector<std::wstring> cells;
    for (int row = 0; row < RowCount(); ++row)
    {
        cells.push_back(Cell(row, column));
    }
    return cells;
}

void Viewer::Click(int control) const
{
    ClickOn(Item(control));
}

void Viewer::ClickRow(int row) const
{
    const RemoteBlock block(m_process.Handle());
    RECT place{};
    place.left = LVIR_LABEL;
    block.Write(place);
    Ask(List(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(block.Address()));
    ClickAt(List(), block.Read<RECT>());
}

void Viewer::ClickHeader(int column) const
{
    const HWND header = reinterpret_cast<HWND>(Ask(List(), LVM_GETHEADER));
    const RemoteBlock block(m_process.Handle());
    block.Write(RECT{});
    Ask(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(block.Address()));
    RECT place = block.Read<RECT>();
    place.left += 20; // clear of the line that sizes the column
    ClickAt(header, place);
}

void Viewer::ClickDate(int index) const
{
    RECT place{};
    Ask(Item(IDC_DATE_LIST), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    ClickAt(Item(IDC_DATE_LIST), place);
}

void Viewer::PressKey(WORD key) const
{
    PressKeyIn(List(), key);
}

int Viewer::LogCount() const
{
    return static_cast<int>(Ask(Item(IDC_LOG_TYPE), CB_GETCOUNT));
}

int Viewer::SelectedLog() const
{
    return static_cast<int>(Ask(Item(IDC_LOG_TYPE), CB_GETCURSEL));
}

std::uint32_t Viewer::TypeOfLog(int index) const
{
    return static_cast<std::uint32_t>(Ask(Item(IDC_LOG_TYPE), CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

void Viewer::SwitchToLog(int index) const
{
    Ask(Item(IDC_LOG_TYPE), CB_SETCURSEL, static_cast<WPARAM>(index));
    Ask(Item(IDC_VIEW), BM_CLICK);
}

void Viewer::ChooseDate() const
{
    const HWND dates = Item(IDC_DATE_LIST);
    Ask(GetParent(dates), WM_COMMAND, MAKEWPARAM(IDC_DATE_LIST, LBN_SELCHANGE), reinterpret_cast<LPARAM>(dates));
}

void Viewer::ChooseDate(int index) const
{
    Ask(Item(IDC_DATE_LIST), LB_SETCURSEL, static_cast<WPARAM>(index));
    ChooseDate();
}
