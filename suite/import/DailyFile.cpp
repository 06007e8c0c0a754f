#include "suite/import/DailyFile.h"

#include "suite/common/KernelHandle.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <string_view>

namespace Import
{

namespace
{

constexpr wchar_t ByteOrderMark = L'\xFEFF';
constexpr DWORD BytesAtOnce = 64 * 1024 * 1024;

struct ReasonRow
{
    DWORD error;
    const char* text;
};

// Why the system does not hand out a file.
constexpr ReasonRow Reasons[] = {
    {ERROR_FILE_NOT_FOUND, "is not there. Check how its name is spelled."},
    {ERROR_PATH_NOT_FOUND, "is not there. Check how its folder is spelled."},
    {ERROR_ACCESS_DENIED, "may not be read by you. Ask its owner for the permission, or copy what you may read."},
    {ERROR_SHARING_VIOLATION, "is held by another program. Close that program and import the file again."},
    {ERROR_LOCK_VIOLATION, "is held by another program. Close that program and import the file again."},
};

struct StartRow
{
    std::string_view bytes;
    const char* text;
};

// How files begin that are no log files. The first that fits counts; the last fits all.
constexpr StartRow Starts[] = {
    {"\xFE\xFF", "is UTF-16 big endian. Save it as UTF-16 little endian with its byte order mark."},
    {"\xEF\xBB\xBF", "is UTF-8. Save it as UTF-16 little endian with its byte order mark."},
    {"", "does not begin with the byte order mark of UTF-16. Save it as UTF-16 little endian, if it is a log file."},
};

[[noreturn]] void RefuseToRead(DWORD error)
{
    const auto* const row = std::ranges::find(Reasons, error, &ReasonRow::error);
    throw BadFile(row != std::end(Reasons) ? row->text
                                           : "cannot be read (system error " + std::to_string(error) +
                                                 "). Check the disk or the connection that it is on.");
}

// The file as characters; a byte too many at its end is dropped.
std::wstring ReadCharacters(HANDLE file)
{
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file, &size))
    {
        RefuseToRead(GetLastError());
    }
    std::wstring text(static_cast<std::size_t>(size.QuadPart) / sizeof(wchar_t), L'\0');
    char* to = reinterpret_cast<char*>(text.data());
    for (std::size_t left = text.size() * sizeof(wchar_t); left != 0;)
    {
        DWORD read = 0;
        if (!ReadFile(file, to, static_cast<DWORD>(std::min<std::size_t>(left, BytesAtOnce)), &read, nullptr))
        {
            RefuseToRead(GetLastError());
        }
        if (read == 0)
        {
            throw BadFile("became shorter while it was read. Import it again.");
        }
        to += read;
        left -= read;
    }
    return text;
}

std::wstring ReadFileText(const std::filesystem::path& path)
{
    const Suite::KernelHandle file = Suite::OpenShared(path.c_str(), GENERIC_READ, OPEN_EXISTING);
    if (!file)
    {
        RefuseToRead(GetLastError());
    }
    try
    {
        return ReadCharacters(file.get());
    }
    catch (const std::bad_alloc&)
    {
        throw BadFile("is too large for the memory of this machine.");
    }
    catch (const std::length_error&)
    {
        throw BadFile("is too large for the memory of this machine.");
    }
}

void RequireByteOrderMark(std::wstring_view text)
{
    if (text.empty())
    {
        throw BadFile("is empty. A log file begins with the byte order mark of UTF-16.");
    }
    if (text.front() != ByteOrderMark)
    {
        const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
        throw BadFile(
            std::ranges::find_if(Starts, [&](const StartRow& row) { return bytes.starts_with(row.bytes); })->text);
    }
}

} // namespace

std::optional<DailyName> ParseDailyName(const std::filesystem::path& path)
{
    const std::wstring stem = path.stem().wstring();
    std::wstring extension = path.extension().wstring();
    std::ranges::transform(extension, extension.begin(),
                           [](wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c; });
    if (extension.size() != 4 || stem.size() != 8 || stem.find_first_not_of(L"0123456789") != stem.npos)
    {
        return std::nullopt;
    }
    const auto day = static_cast<EventLog::Day>(std::stoul(stem));
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(day / 10000)),
                                           std::chrono::month(day / 100 % 100), std::chrono::day(day % 100));
    const EventLog::LogKind* const kind = EventLog::FindKindOfExtension(std::wstring_view(extension).substr(1));
    if (kind == nullptr || !date.ok())
    {
        return std::nullopt;
    }
    return DailyName{kind, day};
}

std::vector<std::wstring> ReadDailyFile(const std::filesystem::path& path)
{
    const std::wstring text = ReadFileText(path);
    RequireByteOrderMark(text);
    std::vector<std::wstring> lines;
    std::size_t start = 1;
    for (std::size_t end = text.find(L'\n', start); end != text.npos; end = text.find(L'\n', start))
    {
        std::wstring_view line(text.data() + start, end - start);
        if (line.ends_with(L'\r'))
        {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        start = end + 1;
    }
    return lines;
}

} // namespace Import
