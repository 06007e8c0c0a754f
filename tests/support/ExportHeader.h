#pragma once

#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <string>
#include <vector>

// The line of labels that the log writes into an export; empty when it could not.
inline std::wstring ExportHeader(CZPTLogBase& log)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"labels.csv");
    ExportStream stream;
    const bool written = stream.Open(path) && log.WriteExportHeader(stream) && stream.Flush();
    stream.Close();
    return written ? ReadUtf16(path) : std::wstring();
}

// That line for labels with these texts.
inline std::wstring HeaderOf(const std::vector<std::wstring>& labels)
{
    std::wstring line;
    for (const std::wstring& label : labels)
    {
        line += (line.empty() ? L"\"" : L"\t\"") + label + L"\"";
    }
    return line + L"\r\n";
}

// The same for texts of the language file.
inline std::wstring HeaderOfTexts(const std::vector<UINT>& numbers)
{
    std::vector<std::wstring> labels;
    for (const UINT number : numbers)
    {
        labels.push_back(Text(number));
    }
    return HeaderOf(labels);
}
