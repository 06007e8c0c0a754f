#include "suite/framework/CategoryFile.h"

#include "suite/framework/TextFile.h"
#include "suite/framework/Trace.h"
#include "suite/framework/Utf8.h"
#include "suite/samples/UrlCategories.h"

#include <fstream>
#include <optional>
#include <system_error>

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

constexpr std::string_view Blanks = " \t";

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

} // namespace

List ParseCategories(std::string_view text)
{
    text = WithoutByteOrderMark(text);
    List groups;
    while (!text.empty())
    {
        const std::string_view line = TakeLine(text);
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
        !isMissing || MakeFile(m_path) ? ReadTextFile(m_path) : std::optional<std::string>();
    if (text)
    {
        return ParseCategories(*text);
    }
    Trace("The list of URL categories can be neither made nor read; that of the sample logs holds.");
    return ParseCategories(DefaultText());
}

} // namespace Framework
