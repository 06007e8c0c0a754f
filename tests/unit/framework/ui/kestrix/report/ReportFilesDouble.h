#pragma once

#include "framework/ui/kestrix/report/ReportFiles.h"
#include "tests/support/MemoryLineReader.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

// Whether two names are the same to the file system.
inline bool IsSameName(std::wstring_view left, std::wstring_view right)
{
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

inline bool HasExtension(std::wstring_view name, std::wstring_view extension)
{
    return name.size() >= extension.size() && IsSameName(name.substr(name.size() - extension.size()), extension);
}

// A folder in memory.
class ReportFilesDouble : public CReportFiles
{
public:
    struct Entry
    {
        std::wstring name;
        std::wstring text; // after the byte order mark
        bool isDirectory = false;
        bool isReadable = true;
    };

    std::vector<Entry> m_arrEntry;

    void ForEachEntry(const std::wstring& extension, const VisitEntry& visit) override
    {
        for (const Entry& entry : m_arrEntry)
        {
            if (HasExtension(entry.name, extension))
            {
                visit(entry.name, entry.isDirectory);
            }
        }
    }

    LogLineReader* Open(const std::wstring& name) override
    {
        const auto found =
            std::ranges::find_if(m_arrEntry, [&](const Entry& entry) { return IsSameName(entry.name, name); });
        const bool opens = found != m_arrEntry.end() && !found->isDirectory && found->isReadable;
        return opens && m_reader.Start(BytesOf(found->text)) ? &m_reader : nullptr;
    }

private:
    static std::string_view BytesOf(std::wstring_view text)
    {
        return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
    }

    MemoryLineReader m_reader;
};
