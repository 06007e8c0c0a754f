#include "suite/framework/TextFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

namespace Framework
{

namespace
{

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

} // namespace

std::optional<std::string> ReadTextFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
    {
        return std::nullopt;
    }
    std::string text(std::istreambuf_iterator<char>(file), {});
    return file.bad() ? std::nullopt : std::optional(std::move(text));
}

std::string_view WithoutByteOrderMark(std::string_view text)
{
    return text.substr(text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0);
}

std::string_view TakeLine(std::string_view& text)
{
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    if (line.ends_with('\r'))
    {
        line.remove_suffix(1);
    }
    return line;
}

} // namespace Framework
