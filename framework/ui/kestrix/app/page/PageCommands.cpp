#include "framework/ui/kestrix/app/page/PageCommands.h"

#include "framework/ui/kestrix/app/page/DetailPane.h"
#include "framework/ui/kestrix/app/page/RecordFinder.h"
#include "framework/ui/kestrix/app/page/RecordList.h"
#include "framework/ui/kestrix/app/page/ShownLog.h"
#include "platform/dialog/Clipboard.h"
#include "resource/resource.h"

#include <algorithm>
#include <utility>

struct CPageCommands::Row
{
    PageCommand command;
    bool (CPageCommands::*canRun)() const;
    void (CPageCommands::*run)();
};

constexpr CPageCommands::Row CPageCommands::Rows[] = {
    {PageCommand::CopyEntry, &CPageCommands::HasEntry, &CPageCommands::CopyEntry},
    {PageCommand::CopyEntryWithHeadings, &CPageCommands::HasEntry, &CPageCommands::CopyEntryWithHeadings},
    {PageCommand::CopyValue, &CPageCommands::HasValue, &CPageCommands::CopyValue},
    {PageCommand::CopyDetails, &CPageCommands::HasDetails, &CPageCommands::CopyDetails},
    {PageCommand::Find, &CPageCommands::Always, &CPageCommands::Find},
    {PageCommand::FindNext, &CPageCommands::Always, &CPageCommands::FindNext},
    {PageCommand::FindPrevious, &CPageCommands::Always, &CPageCommands::FindPrevious},
    {PageCommand::AllowProgram, &CPageCommands::CanAllow, &CPageCommands::AllowProgram},
};

CPageCommands::CPageCommands(CShownLog& log, CRecordList& list, CDetailPane& details, CRecordFinder& finder,
                             std::function<void()> allow)
    : m_log(log), m_list(list), m_details(details), m_finder(finder), m_allow(std::move(allow))
{
}

const CPageCommands::Row& CPageCommands::RowOf(PageCommand command)
{
    return *std::ranges::find(Rows, command, &Row::command);
}

PagePlace CPageCommands::PlaceOf(HWND window) const
{
    if (window == m_list.GetSafeHwnd())
    {
        return PagePlace::Entries;
    }
    return m_details.IsValue(window) ? PagePlace::Details : PagePlace::Elsewhere;
}

bool CPageCommands::IsOffered(PageCommand command) const
{
    return command != PageCommand::AllowProgram || m_details.HasAllowRule();
}

bool CPageCommands::CanRun(PageCommand command) const
{
    return (this->*RowOf(command).canRun)();
}

void CPageCommands::Run(PageCommand command)
{
    if (CanRun(command))
    {
        (this->*RowOf(command).run)();
    }
}

bool CPageCommands::HasEntry() const
{
    return m_list.SelectedRecord() != nullptr;
}

bool CPageCommands::HasDetails() const
{
    return m_details.HasValues();
}

bool CPageCommands::HasValue() const
{
    return !m_details.TextToCopy().empty();
}

bool CPageCommands::CanAllow() const
{
    return m_details.CanAllow();
}

void CPageCommands::CopyEntry()
{
    Copy(m_log.SelectedRecordAsExported(false));
}

void CPageCommands::CopyEntryWithHeadings()
{
    Copy(m_log.SelectedRecordAsExported(true));
}

void CPageCommands::CopyValue()
{
    Copy(m_details.TextToCopy());
}

void CPageCommands::CopyDetails()
{
    Copy(m_details.AllText());
}

void CPageCommands::Find()
{
    m_finder.Ask();
}

void CPageCommands::FindNext()
{
    m_finder.GoOn(false);
}

void CPageCommands::FindPrevious()
{
    m_finder.GoOn(true);
}

void CPageCommands::AllowProgram()
{
    m_allow();
}

void CPageCommands::Copy(const std::wstring& text) const
{
    if (!PutTextOnClipboard(m_list, text))
    {
        AfxMessageBox(LoadText(IDS_CLIPBOARD_IN_USE));
    }
}
