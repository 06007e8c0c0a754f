#pragma once

#include <windows.h>

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#ifndef MN_GETHMENU
constexpr UINT MN_GETHMENU = 0x01E1;
#endif

// An item of a menu as an assistive program reads it.
struct SeenItem
{
    std::wstring text; // with the mark of its access key and, after a tab, the keys that do the same; "-" for a line
    bool isEnabled = false;

    bool operator==(const SeenItem&) const = default;
};

inline std::vector<SeenItem> ItemsOfMenu(HMENU menu)
{
    std::vector<SeenItem> items;
    for (int place = 0; place < GetMenuItemCount(menu); ++place)
    {
        std::array<wchar_t, 200> text{};
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STRING | MIIM_STATE | MIIM_FTYPE;
        info.dwTypeData = text.data();
        info.cch = static_cast<UINT>(text.size());
        GetMenuItemInfoW(menu, static_cast<UINT>(place), TRUE, &info);
        const bool isLine = (info.fType & MFT_SEPARATOR) != 0;
        items.push_back({isLine ? L"-" : text.data(), !isLine && (info.fState & MFS_GRAYED) == 0});
    }
    return items;
}

// A user at the next context menu of this thread: looks at it and presses these keys. One at a time.
class MenuVisit
{
public:
    explicit MenuVisit(std::initializer_list<WORD> keys) : m_arrKey(keys)
    {
        s_current = this;
        m_timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &MenuVisit::Look);
    }

    ~MenuVisit()
    {
        KillTimer(nullptr, m_timer);
        s_current = nullptr;
    }

    MenuVisit(const MenuVisit&) = delete;
    MenuVisit& operator=(const MenuVisit&) = delete;

    bool HasSeen() const { return m_nLooks != 0; }

    const std::vector<SeenItem>& Items() const { return m_arrItem; }

    // Where it stood on the screen.
    const RECT& Place() const { return m_place; }

private:
    static constexpr int MostLooks = 200;

    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD)
    {
        const HWND window = FindWindowW(L"#32768", nullptr);
        if (s_current != nullptr && window != nullptr && IsWindowVisible(window) &&
            GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
        {
            s_current->Visit(window);
        }
    }

    void Visit(HWND window)
    {
        if (++m_nLooks > MostLooks)
        {
            EndMenu(); // none of the keys has closed it
        }
        if (m_nLooks != 1)
        {
            return;
        }
        m_arrItem = ItemsOfMenu(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
        GetWindowRect(window, &m_place);
        for (const WORD key : m_arrKey)
        {
            PostMessageW(window, WM_KEYDOWN, key, 1);
        }
    }

    inline static MenuVisit* s_current = nullptr;

    const std::vector<WORD> m_arrKey;
    UINT_PTR m_timer = 0;
    int m_nLooks = 0;
    std::vector<SeenItem> m_arrItem;
    RECT m_place{};
};
