#include "suite/framework/CategoryFile.h"

#include "suite/framework/Trace.h"
#include "suite/samples/UrlCategories.h"

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

namespace Framework
{

namespace
{

constexpr std::string_view Comment =
    "# The categories of the URL filter: a key as the filter writes it into its log, \"=\", and the\r\n"
    "# name that the log viewer shows for it. Of a key that stands here twice the first name counts.\r\n"
    "# A change shows when the viewer turns to the log of the URL filter again. Without this file\r\n"
    "# the service makes a new one.\r\n"
    "\r\n";

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r";

std::wstring Wide(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // as long as it can get
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::string Narrow(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    std::string narrow(3 * text.size(), '\0'); // as long as it can get
    narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(),
                                                               static_cast<int>(narrow.size()), nullptr, nullptr)));
    return narrow;
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(Blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string DefaultText()
{
    std::string text(Comment);
    for (const Samples::UrlCategory& category : Samples::UrlCategories)
    {
        text += Narrow(category.key) + " = " + Narrow(category.name) + "\r\n";
    }
    return text;
}

// Nothing is left of a file that cannot be written whole.
bool MakeFile(const std::filesystem::path& path)
{
    const bool isMade = static_cast<bool>(std::ofstream(path, std::ios::binary) << DefaultText() << std::flush);
    if (!isMade)
    {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
    return isMade;
}

std::optional<std::string> ReadWhole(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        return std::nullopt;
    }
    std::string text(std::istreambuf_iterator<char>(file), {});
    return file.bad() ? std::nullopt : std::optional(std::move(text));
}

} // namespace

List ParseCategories(std::string_view text)
{
    if (text.starts_with(ByteOrderMark))
    {
        text.remove_prefix(ByteOrderMark.size());
    }
    List groups;
    while (!text.empty())
    {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t sign = line.find('=');
        if (sign != line.npos && !Trimmed(line).starts_with('#'))
        {
            groups.push_back(List{Wide(Trimmed(line.substr(0, sign))), Wide(Trimmed(line.substr(sign + 1)))});
        }
    }
    return groups;
}

List CategoryFile::Groups() const
{
    const std::lock_guard guard(m_mutex);
    std::error_code error;
    const bool isMissing = !std::filesystem::exists(m_path, error) && !error;
    const std::optional<std::string> text =
        !isMissing || MakeFile(m_path) ? ReadWhole(m_path) : std::optional<std::string>();
    if (text)
    {
        return ParseCategories(*text);
    }
    Trace("The list of URL categories can be neither made nor read; that of the sample logs holds.");
    return ParseCategories(DefaultText());
}

} // namespace Framework
