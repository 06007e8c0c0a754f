#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/ListWindow.h"

#include <algorithm>
#include <string>
#include <vector>

// A window with a list that asks a log for the texts of its cells.
class LogWindow : public ListWindow
{
public:
    // The texts of a row's cells as the list shows them.
    std::vector<std::wstring> Row(int item, int columns) const
    {
        std::vector<std::wstring> texts;
        for (int column = 0; column < columns; ++column)
        {
            texts.push_back(m_list.GetItemText(item, column));
        }
        return texts;
    }

    // The texts of a column from top to bottom.
    std::vector<std::wstring> Column(int column) const
    {
        std::vector<std::wstring> texts;
        for (int item = 0; item < m_list.GetItemCount(); ++item)
        {
            texts.push_back(m_list.GetItemText(item, column));
        }
        return texts;
    }

    const CZPTLogBase* m_pLog = nullptr; // not owned

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Notify<LVN_GETDISPINFOW, ListWindow::ListId, &LogWindow::OnGetDispInfo>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnGetDispInfo(NMLVDISPINFOW& info)
    {
        if (m_pLog != nullptr && (info.item.mask & LVIF_TEXT) != 0)
        {
            std::wstring text;
            m_pLog->GetColumnText(reinterpret_cast<const LogRec*>(info.item.lParam), text, info.item.iSubItem);
            const auto room = static_cast<std::size_t>(std::max(info.item.cchTextMax - 1, 0));
            info.item.pszText[text.copy(info.item.pszText, room)] = L'\0';
        }
    }
};
