#pragma once

#include "tests/support/LogFixture.h"

#include <array>
#include <utility>
#include <vector>

using Texts = std::vector<std::wstring>;

// A log of the class that tests look into.
template <class Log>
struct OpenLog : Log
{
    using Log::m_arrColumn;
    using Log::m_arrColumnWidth;
    using Log::m_nInfoTextLimit;
};

// What the tests of a class that is little more than its tables ask.
template <class Log>
class LogClassTest : public LogFixture<OpenLog<Log>>
{
protected:
    using LogFixture<OpenLog<Log>>::m_log;
    using LogFixture<OpenLog<Log>>::m_pane;

    // A line and the record that it becomes.
    struct Case
    {
        std::wstring line;
        Texts fields;
        std::uint32_t image = 0;
    };

    void Expect(const std::vector<Case>& cases)
    {
        for (const Case& each : cases)
        {
            const std::string line(each.line.begin(), each.line.end());
            const LogRec& record = this->Put(each.line);
            EXPECT_EQ(Texts(record.strData.begin(), record.strData.end()), each.fields) << line;
            EXPECT_EQ(record.nImage, each.image) << line;
        }
    }

    // What stands in a row of the list, and after it what a column that is not there leaves.
    Texts Cells(const LogRec& record) const
    {
        Texts cells;
        for (std::size_t column = 0; column <= m_log.m_arrColumn.size(); ++column)
        {
            cells.push_back(this->Cell(record, static_cast<int>(column)));
        }
        return cells;
    }

    // The columns by the numbers of their titles, with their widths.
    void ExpectColumns(const std::vector<std::pair<UINT, std::uint32_t>>& columns) const
    {
        ASSERT_EQ(m_log.m_arrColumn.size(), columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
        {
            EXPECT_EQ(m_log.m_arrColumn[i], Text(columns[i].first)) << i;
            EXPECT_EQ(m_log.m_arrColumnWidth[i], columns[i].second) << i;
        }
    }

    // The captions of all rows by number; 0 is a hidden row without one.
    void ExpectCaptions(const std::array<UINT, CLogInfoPage::InfoRows>& captions)
    {
        m_log.SetInfoLabel();
        for (std::size_t row = 0; row < captions.size(); ++row)
        {
            EXPECT_EQ(m_pane[row].caption, captions[row] == 0 ? std::wstring() : Text(captions[row])) << row;
            EXPECT_EQ(m_pane[row].visible, captions[row] != 0) << row;
        }
    }

    void ExpectExportLabels(const Texts& labels)
    {
        std::wstring line;
        for (const std::wstring& label : labels)
        {
            line += (line.empty() ? L"\"" : L"\t\"") + label + L"\"";
        }
        EXPECT_EQ(this->LabelLine(), line + L"\r\n");
    }

    void ExpectNothingShownWithoutRecordOrPage(std::wstring_view line)
    {
        m_log.SetLogInfo(nullptr);
        this->Put(line);
        m_log.SetInfoDialog(nullptr);
        m_log.SetLogInfo(m_log.GetLogRecord(0));
        EXPECT_TRUE(m_pane.IsUntouched());
    }

    // A text without its colons, of which there must be one.
    static std::wstring WithoutColons(UINT text)
    {
        std::wstring label = Text(text);
        EXPECT_NE(std::erase(label, L':'), 0u) << "nothing to remove, so the test would say nothing";
        return label;
    }
};
