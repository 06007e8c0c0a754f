#pragma once

#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>

// A log with the texts of the program and a detail pane. Lines are taken as the provider has them until UseFiles.
template <class Log>
class LogFixture : public ::testing::Test
{
protected:
    LogFixture() { m_log.SetInfoDialog(&m_pane); }

    void UseFiles() { m_log.m_bUseDBMgr = false; }

    bool Accepts(std::wstring_view line) { return m_log.PutRecode(line, CZPTLogBase::AnyLine); }

    // The record of the line. Throws std::runtime_error when the line was refused.
    LogRec& Put(std::wstring_view line)
    {
        if (!Accepts(line))
        {
            throw std::runtime_error("the line was refused");
        }
        return *m_log.GetLogRecord(m_log.GetLogCount() - 1);
    }

    // The detail pane with the record of the line.
    const InfoPaneDouble& Show(std::wstring_view line)
    {
        m_log.SetInfoLabel();
        m_log.SetLogInfo(&Put(line));
        return m_pane;
    }

    // The text of a list cell; before, where the log does not touch it.
    std::wstring Cell(const LogRec& record, int column, std::wstring before = L"before") const
    {
        m_log.GetColumnText(&record, before, column);
        return before;
    }

    int CompareUp(const LogRec& first, const LogRec& second, int column) const
    {
        return Compare(m_log.m_pfnCompareUp, first, second, column);
    }

    int CompareDown(const LogRec& first, const LogRec& second, int column) const
    {
        return Compare(m_log.m_pfnCompareDn, first, second, column);
    }

    // Whether the column sorts the first record before the second, in both directions.
    bool IsBefore(const LogRec& first, const LogRec& second, int column) const
    {
        return CompareUp(first, second, column) < 0 && CompareUp(second, first, column) > 0 &&
               CompareDown(first, second, column) > 0 && CompareDown(second, first, column) < 0;
    }

    // The line of labels of an export, as the file has it.
    std::wstring LabelLine()
    {
        const TemporaryFolder folder;
        const std::wstring path = folder.File(L"labels.csv");
        ExportStream stream;
        if (!stream.Open(path) || !m_log.WriteExportHeader(stream) || !stream.Flush())
        {
            throw std::runtime_error("the labels cannot be written");
        }
        stream.Close();
        return ReadUtf16(path);
    }

    const LanguageFile m_language;
    Log m_log;
    InfoPaneDouble m_pane;

private:
    static int Compare(PFNLVCOMPARE compare, const LogRec& first, const LogRec& second, int column)
    {
        return compare(reinterpret_cast<LPARAM>(&first), reinterpret_cast<LPARAM>(&second), column);
    }
};
