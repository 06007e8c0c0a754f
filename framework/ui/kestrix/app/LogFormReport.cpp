// The form with a report: its two labels.

#include "common/VdCommon/VdComn_ByteArray.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FormatText.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/app/HeadingLook.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/app/ReportSpan.h"
#include "framework/ui/kestrix/logs/CalendarSeconds.h"
#include "framework/ui/kestrix/logs/EventLogKey.h"
#include "resource/resource.h"

#include <cstring>
#include <ctime>

namespace
{

std::uint32_t ReportDays()
{
    return ReportSpanOf(
        VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, L"GenReportFrequency", DefaultReportSpan));
}

// The start of the report's period, or the suite's installation when that came later.
std::int64_t ReportStart()
{
    const std::int64_t start = ::_time64(nullptr) - (ReportDays() - 1) * SecondsOfADay;
    VdCommon::ByteArray bytes;
    std::uint32_t error = 0;
    if (!VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, EventLogKey, L"InstallTime", bytes, 0, &error))
    {
        VD_TRACE(Error, L"VdCommon::Storage::Reg::QueryValue() failed: 0x%08X", error);
    }
    SYSTEMTIME installed{};
    if (bytes.Size() != sizeof installed)
    {
        VD_TRACE(Error, L"size of byte_array is invalid: %d", static_cast<int>(bytes.Size()));
        return start;
    }
    std::memcpy(&installed, bytes.Data(), sizeof installed);
    const std::int64_t installTime = CalendarSeconds(installed);
    return start < installTime ? installTime : start;
}

std::wstring DateText(std::int64_t time)
{
    std::tm fields{};
    const __time64_t seconds = time;
    if (::_localtime64_s(&fields, &seconds) != 0)
    {
        return {};
    }
    return VdCommon::String::FormatDate(LoadText(IDS_REPORT_DATE), fields);
}

void ShowLabel(CColorText& label, const std::wstring& text, LONG weight)
{
    CColorText::FontLook look = HeadingLook();
    look.weight = weight;
    label.SetFontLook(look);
    label.SetAlignment(CColorText::Horizontal::Left, CColorText::Vertical::Centre);
    label.SetText(text);
    label.ShowWindow(SW_SHOW);
}

} // namespace

void CLogFormDlg::SetReportLabels()
{
    ShowLabel(m_ReportTitle, LoadText(IDS_REPORT_TITLE), FW_BOLD);
    const std::wstring total =
        VdCommon::String::FormatText(LoadText(IDS_REPORT_TOTAL), {m_ReportPage.TotalCount(), DateText(ReportStart())});
    ShowLabel(m_ReportTotal, total, FW_NORMAL);
}
