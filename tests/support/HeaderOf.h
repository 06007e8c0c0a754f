#pragma once

#include "tests/support/LanguageFile.h"

#include <string>
#include <vector>

// The line of labels of an export with these labels.
inline std::wstring HeaderOf(const std::vector<std::wstring>& labels)
{
    std::wstring line;
    for (const std::wstring& label : labels)
    {
        line += (line.empty() ? L"\"" : L"\t\"") + label + L"\"";
    }
    return line + L"\r\n";
}

// The same for texts of the language file, by their numbers.
inline std::wstring HeaderOfTexts(const std::vector<UINT>& numbers)
{
    std::vector<std::wstring> labels;
    for (const UINT number : numbers)
    {
        labels.push_back(Text(number));
    }
    return HeaderOf(labels);
}
