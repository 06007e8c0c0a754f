#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include "suite/common/KernelHandle.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

template <std::size_t Size>
void Set(wchar_t (&field)[Size], const std::wstring& text)
{
    ASSERT_LE(text.size(), Size);
    std::copy(text.begin(), text.end(), field);
}

} // namespace

DebugLogConfig ConfigOf(const LogPlace& place)
{
    DebugLogConfig config{};
    Set(config.logFolder, place.folder);
    Set(config.logPrefix, place.prefix);
    Set(config.logFile, place.file);
    Set(config.logExtension, place.extension);
    Set(config.moduleName, place.module);
    return config;
}

VdDbg::LogName NameIn(const std::filesystem::path& folder)
{
    return VdDbg::LogName(
        ConfigOf({.folder = folder.wstring(), .prefix = L"", .file = L"Trace", .extension = L"log", .module = L""}));
}

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour)
{
    SYSTEMTIME time{};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    return time;
}

std::vector<std::string_view> SplitLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t end = text.find("\r\n"); end != std::string_view::npos; end = text.find("\r\n"))
    {
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 2);
    }
    EXPECT_EQ(text, "") << "the file ends within a line";
    return lines;
}

std::vector<std::string> LinesOf(const std::wstring& path)
{
    const std::string bytes = std::filesystem::exists(path) ? ReadBytes(path) : std::string();
    const std::vector<std::string_view> lines = SplitLines(bytes);
    return {lines.begin(), lines.end()};
}

std::vector<std::wstring> FilesIn(const std::filesystem::path& folder)
{
    std::vector<std::wstring> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        names.push_back(entry.path().filename().wstring());
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool IsFree(const std::wstring& path)
{
    return Suite::OwnFile(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                      nullptr)) != nullptr;
}
