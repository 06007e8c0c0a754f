#include "framework/ui/kestrix/report/ReportFiles.h"

#include "framework/ui/kestrix/logs/DailyFiles.h"

void CReportFolder::ForEachEntry(const std::wstring& extension, const VisitEntry& visit)
{
    ::ForEachEntry(m_strFolder + L"*" + extension,
                   [&](const WIN32_FIND_DATAW& entry)
                   {
                       visit(entry.cFileName, (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
                       return true;
                   });
}

LogLineReader* CReportFolder::Open(const std::wstring& name)
{
    return m_reader.Open(m_strFolder + name) ? &m_reader : nullptr;
}
