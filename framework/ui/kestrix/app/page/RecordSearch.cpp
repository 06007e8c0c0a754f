#include "framework/ui/kestrix/app/page/RecordSearch.h"

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/FindTextDialog.h"

#include <algorithm>
#include <stdexcept>

CRecordSearch::CRecordSearch(const CZPTLogBase& log, const FindRequest& request)
    : m_log(log), m_pattern(request.text, request.matchCase, request.wholeWords)
{
}

// A record that is too short for its columns shows nothing there, nor do others that are as rare.
bool CRecordSearch::IsIn(const LogRec* record)
{
    if (record == nullptr)
    {
        return false;
    }
    try
    {
        m_log.GetShownTexts(*record, m_texts);
    }
    catch (const std::out_of_range&)
    {
        return false;
    }
    return std::ranges::any_of(m_texts, [this](std::wstring_view text) { return m_pattern.IsIn(text); });
}
