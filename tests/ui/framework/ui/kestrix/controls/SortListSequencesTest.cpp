// The sorted list, which asks for its rows, beside a plain list view of the system, which keeps them: whatever is done
// to both in the same order, both show the same.

#include "framework/ui/kestrix/controls/SortListCtrl.h"
#include "tests/support/CommonControls.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/ImportSlot.h"
#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr int Sequences = 10'000;
constexpr int MostSteps = 5;
constexpr int SequencesOfADay = 20; // after which both are filled anew
constexpr int MostRows = 60;

constexpr int PlainId = 1;
constexpr int SortedId = 2;

// What the item data of a row points to.
struct SequenceItem
{
    std::wstring text; // of the first column
    int number;        // by which the second column is sorted
};

// Items with few different texts, which begin with few letters.
const std::vector<SequenceItem>& Items()
{
    static const std::vector<SequenceItem> items = []
    {
        std::vector<SequenceItem> made;
        for (int i = 0; i < 200; ++i)
        {
            const std::wstring word{L"aAbc"[i % 4], L"abC"[i / 4 % 3], L"xy"[i / 12 % 2]};
            made.push_back({word.substr(0, static_cast<std::size_t>(i % 5 == 0 ? 1 : 3)), i * 37 % 11});
        }
        return made;
    }();
    return items;
}

const SequenceItem& ItemOf(LPARAM data)
{
    return *reinterpret_cast<const SequenceItem*>(data);
}

int CALLBACK CompareItems(LPARAM first, LPARAM second, LPARAM column)
{
    const int way = column < 0 ? -1 : 1;
    const SequenceItem& left = ItemOf(first);
    const SequenceItem& right = ItemOf(second);
    return way * (column * way == 1 ? left.text.compare(right.text) : left.number - right.number);
}

// A list of which everything is asked by messages, as by another program. Without columns, and so without a header
// whose place the system would have to be told at each step, ten thousand sequences take seconds.
CWindow MakeList(HWND parent, int id, DWORD style)
{
    return CWindow(CreateWindowExW(
        0, WC_LISTVIEWW, L"", WS_CHILD | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | style, 0, 0, 300, 200, parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), AfxGetInstanceHandle(), nullptr));
}

// What a user and a screen reader find.
struct View
{
    LRESULT count;
    LRESULT selected;
    LRESULT focused;
    LRESULT top;

    bool operator==(const View&) const = default;
};

std::ostream& operator<<(std::ostream& out, const View& view)
{
    return out << view.count << " rows, selected " << view.selected << ", focus " << view.focused << ", top "
               << view.top;
}

LRESULT NextRow(const CWindow& list, UINT flags)
{
    return list.SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), static_cast<LPARAM>(flags));
}

View ViewOf(const CWindow& list)
{
    return {list.SendMessage(LVM_GETITEMCOUNT), NextRow(list, LVNI_SELECTED), NextRow(list, LVNI_FOCUSED),
            list.SendMessage(LVM_GETTOPINDEX)};
}

struct Row
{
    LPARAM data;
    int image;
    UINT state;
    std::wstring text;

    bool operator==(const Row&) const = default;
};

std::vector<Row> RowsOf(const CWindow& list)
{
    std::vector<Row> rows;
    const auto count = static_cast<int>(list.SendMessage(LVM_GETITEMCOUNT));
    for (int i = 0; i < count; ++i)
    {
        std::array<wchar_t, 20> text{};
        LVITEMW item{};
        item.mask = LVIF_PARAM | LVIF_IMAGE | LVIF_STATE | LVIF_TEXT;
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.iItem = i;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        EXPECT_TRUE(list.SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
        rows.push_back({item.lParam, item.iImage, item.state, item.pszText});
    }
    return rows;
}

// The clock by which a list view takes letters for one word.
DWORD g_ticks = 0;

DWORD WINAPI Ticks()
{
    return g_ticks;
}

// Nobody sees the lists, and telling the system's server at each step what is to be painted takes most of the time.
class NoPainting
{
public:
    NoPainting()
        : m_invalidate(ImportSlot<decltype(&InvalidateRect)>(L"comctl32.dll", "InvalidateRect"), &Invalidate),
          m_scroll(ImportSlot<decltype(&ScrollWindowEx)>(L"comctl32.dll", "ScrollWindowEx"), &Scroll)
    {
    }

private:
    static BOOL WINAPI Invalidate(HWND, const RECT*, BOOL) { return TRUE; }

    static int WINAPI Scroll(HWND, int, int, const RECT*, const RECT*, HRGN, RECT*, UINT) { return NULLREGION; }

    const ImportPatch<decltype(&InvalidateRect)> m_invalidate;
    const ImportPatch<decltype(&ScrollWindowEx)> m_scroll;
};

// Both lists in one window, which answers for the texts of either by the item data alone.
class ListPair : public CWnd
{
public:
    ListPair()
    {
        RegisterCommonControls();
        CWnd::Create(L"STATIC", {}, WS_POPUP, {0, 0, 640, 480}, nullptr, 0);
        m_plain = MakeList(m_hWnd, PlainId, 0);
        m_sorted = MakeList(m_hWnd, SortedId, LVS_OWNERDATA);
        m_sortedObject.SubclassWindow(m_sorted);
    }

    // Does the same to both.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        const LRESULT plain = m_plain.SendMessage(message, wParam, lParam);
        EXPECT_EQ(m_sorted.SendMessage(message, wParam, lParam), plain) << "message " << message;
        return plain;
    }

    void Insert(int place, const SequenceItem& data)
    {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_IMAGE;
        item.pszText = LPSTR_TEXTCALLBACKW;
        item.iItem = place;
        item.iImage = data.number % 3;
        item.lParam = reinterpret_cast<LPARAM>(&data);
        Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }

    void SetState(int row, UINT state, UINT mask)
    {
        LVITEMW item{};
        item.state = state;
        item.stateMask = mask;
        Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }

    int Count() const { return static_cast<int>(m_plain.SendMessage(LVM_GETITEMCOUNT)); }

    CWindow m_plain;
    CWindow m_sorted;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Notify<LVN_GETDISPINFOW, PlainId, &ListPair::OnGetDispInfo>,
                                                 On::Notify<LVN_GETDISPINFOW, SortedId, &ListPair::OnGetDispInfo>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnGetDispInfo(NMLVDISPINFOW& info)
    {
        if ((info.item.mask & LVIF_TEXT) != 0)
        {
            const SequenceItem& item = ItemOf(info.item.lParam);
            const std::wstring text = info.item.iSubItem == 0 ? item.text : std::to_wstring(item.number);
            const auto room = static_cast<std::size_t>(info.item.cchTextMax - 1);
            info.item.pszText[text.copy(info.item.pszText, room)] = L'\0';
        }
    }

    CSortListCtrl m_sortedObject;
};

// Draws what is done next, and says it.
class Hand
{
public:
    Hand(ListPair& lists, std::uint32_t seed) : m_lists(lists), m_random(seed) {}

    int Any(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    // A day is loaded: no rows, then many at once.
    void Fill()
    {
        m_said = "fill";
        m_lists.Send(LVM_DELETEALLITEMS);
        m_lists.Send(WM_SETREDRAW, FALSE);
        const int rows = Any(MostRows);
        m_lists.Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows));
        for (int i = 0; i < rows; ++i)
        {
            m_lists.Insert(i, Items()[static_cast<std::size_t>(Any(200))]);
        }
        m_lists.Send(WM_SETREDRAW, TRUE);
    }

    void Step()
    {
        struct Deed
        {
            const char* name;
            void (Hand::*work)();
        };

        static constexpr Deed Deeds[] = {
            {"insert", &Hand::Insert}, {"sort", &Hand::Sort},     {"sort", &Hand::Sort},
            {"select", &Hand::Select}, {"scroll", &Hand::Scroll}, {"scroll into sight", &Hand::ScrollIntoSight},
            {"delete", &Hand::Delete}, {"key", &Hand::Key},       {"type", &Hand::Type},
            {"find", &Hand::Find},
        };
        const Deed& deed = Deeds[Any(static_cast<int>(std::size(Deeds)))];
        m_said += std::string(", ") + deed.name;
        (this->*deed.work)();
    }

    const std::string& Said() const { return m_said; }

private:
    // Any row, and sometimes none.
    int AnyRow() { return Any(m_lists.Count() + 2) - 1; }

    void Insert() { m_lists.Insert(std::max(AnyRow(), 0), Items()[static_cast<std::size_t>(Any(200))]); }

    void Sort()
    {
        static constexpr std::array<LPARAM, 4> ways{1, 2, -1, -2};
        m_lists.Send(LVM_SORTITEMS, static_cast<WPARAM>(ways[static_cast<std::size_t>(Any(4))]),
                     reinterpret_cast<LPARAM>(&CompareItems));
    }

    void Select()
    {
        static constexpr std::array<UINT, 3> masks{LVIS_SELECTED, LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED};
        const UINT mask = masks[static_cast<std::size_t>(Any(3))];
        if (const int row = AnyRow(); row >= 0)
        {
            m_lists.SetState(row, Any(4) == 0 ? 0 : mask, mask);
        }
    }

    void Scroll() { m_lists.Send(LVM_SCROLL, 0, Any(600) - 300); }

    void ScrollIntoSight() { m_lists.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(AnyRow())); }

    void Delete()
    {
        Any(8) == 0 ? m_lists.Send(LVM_DELETEALLITEMS) : m_lists.Send(LVM_DELETEITEM, static_cast<WPARAM>(AnyRow()));
    }

    void Key()
    {
        static constexpr std::array<WPARAM, 6> keys{VK_UP, VK_DOWN, VK_HOME, VK_END, VK_PRIOR, VK_NEXT};
        m_lists.Send(WM_KEYDOWN, keys[static_cast<std::size_t>(Any(6))], 1);
    }

    // A word of one to three letters, at once.
    void Type()
    {
        g_ticks += 10'000;
        for (int letters = Any(3); letters >= 0; --letters)
        {
            g_ticks += 10;
            m_lists.Send(WM_CHAR, static_cast<WPARAM>(L"abcxyB"[Any(6)]), 1);
        }
    }

    // Wine's list view tells small letters from capitals when it is asked for a text, that of Windows does not.
    void Find()
    {
        LVFINDINFOW find{};
        const SequenceItem& item = Items()[static_cast<std::size_t>(Any(200))];
        const std::wstring beginning = item.text.substr(0, 2);
        static constexpr std::array<UINT, 3> kinds{LVFI_STRING, LVFI_STRING | LVFI_PARTIAL,
                                                   LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP};
        const bool hasOtherCase = item.text.find_first_of(L"aAC") != item.text.npos;
        find.flags = hasOtherCase ? LVFI_PARAM : kinds[static_cast<std::size_t>(Any(3))];
        find.lParam = reinterpret_cast<LPARAM>(&item);
        find.psz = (find.flags & LVFI_PARTIAL) != 0 ? beginning.c_str() : item.text.c_str();
        m_lists.Send(LVM_FINDITEMW, static_cast<WPARAM>(AnyRow()), reinterpret_cast<LPARAM>(&find));
    }

    ListPair& m_lists;
    std::mt19937 m_random;
    std::string m_said;
};

} // namespace

TEST(SortListSequencesTest, TheListThatAsksForItsRowsShowsWhatOneWithRowsOfItsOwnShows)
{
    ListPair lists;
    const ImportPatch clock(ImportSlot<decltype(&GetTickCount)>(L"comctl32.dll", "GetTickCount"), &Ticks);
    const NoPainting fast;
    Hand hand(lists, Seed());
    for (int sequence = 0; sequence < Sequences; ++sequence)
    {
        if (sequence % SequencesOfADay == 0)
        {
            hand.Fill();
        }
        for (int steps = hand.Any(MostSteps); steps >= 0; --steps)
        {
            hand.Step();
            ASSERT_FALSE(HasFailure()) << "sequence " << sequence << ": " << hand.Said();
            ASSERT_EQ(ViewOf(lists.m_sorted), ViewOf(lists.m_plain)) << "sequence " << sequence << ": " << hand.Said();
        }
        ASSERT_TRUE(RowsOf(lists.m_sorted) == RowsOf(lists.m_plain)) << "sequence " << sequence << ": " << hand.Said();
    }
}
