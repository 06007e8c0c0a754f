#pragma once

#include "common/VdDbg.h"

#include <string>

namespace VdDbg
{

// Where a log lies: the file that is written, and beside it the old files, which were written before it.
//
//     C:\Logs\zptKestrix.log      the current file
//     C:\Logs\zptKestrix.1.log    the newest of the old ones, and so on
class LogName
{
public:
    // folder\prefix + file.extension, each as the settings say. What they leave empty:
    //     folder     the folder Zeptara in the user's temporary folder; any folder is made absolute
    //     prefix     stays empty
    //     file       the module name, or the name of the running program when that is empty too
    //     extension  log
    explicit LogName(const DebugLogConfig& config);

    std::wstring Folder() const;

    std::wstring Current() const { return m_strStem + m_strExtension; }

    std::wstring Old(unsigned number) const { return m_strStem + L"." + std::to_wstring(number) + m_strExtension; }

    // For a file on its way out: a name that stands for this moment, process and thread alone.
    std::wstring Discarded() const;

private:
    std::wstring m_strStem;      // all but the extension
    std::wstring m_strExtension; // with the point before it
};

} // namespace VdDbg
