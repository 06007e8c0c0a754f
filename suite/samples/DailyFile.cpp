#include "suite/samples/DailyFile.h"

#include "suite/samples/Failure.h"

#include <algorithm>
#include <fstream>

namespace Samples
{

namespace
{

constexpr wchar_t ByteOrderMark = L'\xFEFF';

// The file as characters; a byte too many at its end is dropped.
std::wstring ReadCharacters(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    std::wstring text;
    if (stream && !error)
    {
        text.resize(static_cast<std::size_t>(size / sizeof(wchar_t)));
        stream.read(reinterpret_cast<char*>(text.data()), static_cast<std::streamsize>(text.size() * sizeof(wchar_t)));
    }
    if (!stream || error)
    {
        throw Failure(ExitCode::WorkFailed,
                      "cannot read the file " + Utf8(path) + ". Check that it exists and that you may read it.");
    }
    return text;
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
    const int number = std::stoi(stem);
    const std::chrono::year_month_day date(std::chrono::year(number / 10000),
                                           std::chrono::month(static_cast<unsigned>(number / 100 % 100)),
                                           std::chrono::day(static_cast<unsigned>(number % 100)));
    const Kind* const kind = FindKind(std::wstring_view(extension).substr(1));
    if (kind == nullptr || !date.ok())
    {
        return std::nullopt;
    }
    return DailyName{kind, date};
}

std::vector<std::wstring> ReadDailyFile(const std::filesystem::path& path)
{
    const std::wstring text = ReadCharacters(path);
    if (!text.starts_with(ByteOrderMark))
    {
        throw Failure(ExitCode::WorkFailed, Utf8(path) + " is no log file: it does not begin with the byte order mark "
                                                         "of UTF-16. Save it as UTF-16 little endian.");
    }
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

} // namespace Samples
