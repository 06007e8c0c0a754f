#pragma once

#include <string>

namespace VdCommon
{

// The name of a folder as it stands before that of a file: with "\" at its end. The empty one stays empty.
inline std::wstring WithSeparator(std::wstring folder)
{
    if (!folder.empty() && folder.back() != L'\\')
    {
        folder += L'\\';
    }
    return folder;
}

} // namespace VdCommon
