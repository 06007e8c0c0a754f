#include "tests/support/GoldenDay.h"

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/GoldenDayFile.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/KeptText.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/VisibleText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr wchar_t ExportDate[] = L"20/11/2026";
constexpr wchar_t ExportAddress[] = L"192.0.2.1";

// What a log keeps to itself and its classes.
struct OpenLog : CZPTLogBase
{
    using CZPTLogBase::m_arrColumn;
    using CZPTLogBase::m_arrColumnWidth;
    using CZPTLogBase::m_nLogType;
};

struct NumberedRecord
{
    std::size_t line; // counted from 1
    LogRec* record;   // null: the line was refused
};

// A record that is shorter than its class expects is an error of the class that the page meets too.
template <class Function>
std::string TextOrError(Function text)
{
    try
    {
        return text();
    }
    catch (const std::out_of_range&)
    {
        return "(out of range)";
    }
}

std::string Joined(const std::vector<std::string>& texts, const char* between)
{
    std::string all;
    for (const std::string& text : texts)
    {
        all += (&text == texts.data() ? "" : between) + text;
    }
    return all;
}

// Writes the sections that tell what the log made of its lines.
class DayWriter
{
public:
    DayWriter(CZPTLogBase& log, const std::vector<std::wstring>& lines) : m_log(log)
    {
        InfoPaneDouble pane; // as the page has set one before it loads a day: some fields depend on it
        log.SetInfoDialog(&pane);
        for (const std::wstring& line : lines)
        {
            const bool put = log.PutRecode(line, CZPTLogBase::AnyLine);
            m_arrLine.push_back({m_arrLine.size() + 1, put ? log.GetLogRecord(log.GetLogCount() - 1) : nullptr});
        }
        log.SetInfoDialog(nullptr);
        std::ranges::copy_if(m_arrLine, std::back_inserter(m_arrRecord), &NumberedRecord::record);
    }

    std::string Records() const
    {
        std::ostringstream text;
        for (const auto& [line, record] : m_arrLine)
        {
            if (record == nullptr)
            {
                text << line << ": refused\n";
                continue;
            }
            text << line << ": icon " << record->nImage << '\n';
            for (std::size_t field = 0; field < record->strData.size(); ++field)
            {
                const std::string value = Visible(record->strData[field]);
                text << "  " << field << (value.empty() ? "" : " ") << value << '\n';
            }
        }
        return text.str();
    }

    std::string List() const
    {
        std::vector<std::string> titles;
        for (std::size_t column = 0; column < Titles().size(); ++column)
        {
            titles.push_back(Visible(Titles()[column]) + " (" + std::to_string(Widths()[column]) + ")");
        }
        std::string text = Joined(titles, " | ") + "\n";
        std::vector<NumberedRecord> rows(m_arrRecord.rbegin(), m_arrRecord.rend());
        Sort(rows, m_log.m_pfnCompareDn, 0);
        for (const NumberedRecord& row : rows)
        {
            text += std::to_string(row.line) + ": " + Cells(*row.record) + "\n";
        }
        for (std::size_t column = 0; column < Titles().size(); ++column)
        {
            const std::string title = "by " + Visible(Titles()[column]);
            Sort(rows, m_log.m_pfnCompareUp, column);
            text += title + ": " + Numbers(rows) + "\n";
            Sort(rows, m_log.m_pfnCompareDn, column);
            text += title + " again: " + Numbers(rows) + "\n";
        }
        return text;
    }

    std::string Pane() const
    {
        std::string text;
        for (const auto& [line, record] : m_arrRecord)
        {
            InfoPaneDouble pane;
            m_log.SetInfoDialog(&pane);
            m_log.SetInfoLabel();
            text += std::to_string(line) + ":\n";
            text += "  " +
                    TextOrError(
                        [&, shown = record]
                        {
                            m_log.SetLogInfo(shown);
                            return Joined(PaneRows(pane), "\n  ");
                        }) +
                    "\n";
            m_log.SetInfoDialog(nullptr);
        }
        return text;
    }

    std::string Export() const
    {
        const TemporaryFolder folder;
        const std::wstring path = folder.File(L"export.csv");
        std::uint32_t error = 0;
        if (!m_log.ExportLog(path, Type(), ExportDate, ExportAddress, &error))
        {
            return "(failed)\n";
        }
        constexpr std::wstring_view lineEnd = L"\r\n";
        const std::wstring file = ReadUtf16(path);
        std::string text;
        for (std::size_t start = 0; start < file.size();)
        {
            const std::size_t end = std::min(file.find(lineEnd, start), file.size());
            text += Visible(file.substr(start, end - start)) + "\n";
            start = end + lineEnd.size();
        }
        return text;
    }

private:
    std::uint32_t Type() const { return m_log.*&OpenLog::m_nLogType; }

    const std::vector<std::wstring>& Titles() const { return m_log.*&OpenLog::m_arrColumn; }

    const std::vector<std::uint32_t>& Widths() const { return m_log.*&OpenLog::m_arrColumnWidth; }

    std::string Cells(const LogRec& record) const
    {
        std::vector<std::string> cells;
        for (std::size_t column = 0; column < Titles().size(); ++column)
        {
            cells.push_back(TextOrError(
                [&]
                {
                    std::wstring text = L"(no text)";
                    m_log.GetColumnText(&record, text, static_cast<int>(column));
                    return Visible(text);
                }));
        }
        return Joined(cells, " | ");
    }

    // As the list of records sorts its rows: equal ones keep their order.
    static void Sort(std::vector<NumberedRecord>& rows, PFNLVCOMPARE compare, std::size_t column)
    {
        std::ranges::stable_sort(rows,
                                 [&](const NumberedRecord& above, const NumberedRecord& below)
                                 {
                                     return compare(reinterpret_cast<LPARAM>(above.record),
                                                    reinterpret_cast<LPARAM>(below.record),
                                                    static_cast<LPARAM>(column)) < 0;
                                 });
    }

    static std::string Numbers(const std::vector<NumberedRecord>& rows)
    {
        std::vector<std::string> numbers;
        std::ranges::transform(rows, std::back_inserter(numbers),
                               [](const NumberedRecord& row) { return std::to_string(row.line); });
        return Joined(numbers, " ");
    }

    std::vector<std::string> PaneRows(const InfoPaneDouble& pane) const
    {
        std::vector<std::string> rows;
        for (std::size_t number = 0; number < CLogInfoPage::InfoRows; ++number)
        {
            const InfoPaneDouble::Row& row = pane[number];
            if (row != InfoPaneDouble::Row{})
            {
                rows.push_back(Visible(row.caption) + " | " + Visible(row.text) + (row.visible ? "" : " | hidden") +
                               (row.isSet ? "" : " | not set") + (row.isLink ? " | link" : "") +
                               (row.toolTip.empty() ? "" : " | tip: " + Visible(row.toolTip)));
            }
        }
        const LogKind* const kind = FindLogKind(Type());
        if (kind != nullptr && kind->hasWholeInfo)
        {
            rows.push_back("whole text: " + Visible(m_log.GetInfoText()));
        }
        return rows;
    }

    CZPTLogBase& m_log;
    std::vector<NumberedRecord> m_arrLine;
    std::vector<NumberedRecord> m_arrRecord; // the lines that were not refused
};

std::string WithoutTrailingBlanks(const std::string& text)
{
    std::istringstream input(text);
    std::string result;
    for (std::string line; std::getline(input, line);)
    {
        result += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
    }
    return result;
}

std::string DayOf(CZPTLogBase& log, const GoldenDayFile& day)
{
    log.m_bUseDBMgr = day.isFromDatabase;
    const std::vector<std::wstring> lines = day.Lines();
    std::string text = day.comment + "log: " + day.extension;
    text += day.isFromDatabase ? "\nform: database" : "\nform: file";
    text += "\n\n[lines]\n";
    for (const std::wstring& line : lines)
    {
        text += Visible(line) + "\n";
    }
    const DayWriter writer(log, lines);
    text += "\n[records]\n" + writer.Records();
    text += "\n[list]\n" + writer.List();
    text += "\n[pane]\n" + writer.Pane();
    text += "\n[export]\n" + writer.Export();
    return WithoutTrailingBlanks(text);
}

} // namespace

void ExpectGoldenDay(CZPTLogBase& log, const std::string& name)
{
    const std::string found = DayOf(log, GoldenDayFile(name));
    EXPECT_TRUE(IsKeptText(found, GoldenDayFile::PathOf(name),
                           std::filesystem::path(KESTRIX_GOLDEN_DAY_OUTPUT) / (name + ".day")))
        << "tools/update-golden-days shows the difference and keeps the new day";
}

std::vector<GoldenDayHead> GoldenDays()
{
    std::vector<GoldenDayHead> days;
    for (const std::string& name : GoldenDayFile::Names())
    {
        const GoldenDayFile day(name);
        days.push_back({name, {day.extension.begin(), day.extension.end()}, day.isFromDatabase});
    }
    return days;
}
