#pragma once

#include "framework/ui/kestrix/logs/ExportStream.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <new>
#include <string>

// A log with a line of labels, or one that cannot write it.
class LabelledLog : public PlainLog
{
public:
    using PlainLog::PlainLog;

    bool WriteExportHeader(ExportWriter& stream) override
    {
        m_atLabels();
        return m_bHeaderWorks && stream.WriteLabel(L"first", L'\t') && stream.WriteLabel(L"last", L'\n');
    }

    void EscapeQuote(std::wstring& text) const override
    {
        if (m_bEscapeThrows)
        {
            throw std::bad_alloc();
        }
        PlainLog::EscapeQuote(text);
    }

    bool m_bHeaderWorks = true;
    bool m_bEscapeThrows = false;
    std::function<void()> m_atLabels = [] {}; // called while the export is under way
};

constexpr wchar_t LabelLine[] = L"\"first\"\t\"last\"\r\n";

// A log and the file that it exports to.
class ExportTest : public ::testing::Test
{
protected:
    static constexpr std::uint32_t Untouched = 77;

    bool Export(std::uint32_t logType = LogTypeVirus)
    {
        m_nError = Untouched;
        return m_log.ExportLog(m_path, logType, L"31/12/2008", L"192.0.2.1", &m_nError);
    }

    void Put(std::wstring_view line) { ASSERT_TRUE(m_log.PutRecode(line, CZPTLogBase::AnyLine)); }

    // The record lines of the file, after the title and the labels.
    std::wstring RecordLines(std::uint32_t logType = LogTypeVirus)
    {
        EXPECT_TRUE(Export(logType));
        const std::wstring head = Title(logType) + LabelLine;
        const std::wstring text = ReadUtf16(m_path);
        EXPECT_TRUE(text.starts_with(head));
        return text.substr(head.size());
    }

    static std::wstring Title(std::uint32_t logType)
    {
        return L"\"" + Text(ExportTitle(logType)) + L"\"\t\"31/12/2008\"\t\"192.0.2.1\"\r\n";
    }

    bool FileExists() const { return std::filesystem::exists(m_path); }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"export.csv");
    LabelledLog m_log;
    std::uint32_t m_nError = Untouched;
};
