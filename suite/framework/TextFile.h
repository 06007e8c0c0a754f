#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Framework
{

// The bytes of a file that a person writes; nothing when it cannot be read.
std::optional<std::string> ReadTextFile(const std::filesystem::path& path);

// Without the byte order mark that some editors put on top of UTF-8.
std::string_view WithoutByteOrderMark(std::string_view text);

// Takes the next line off the text and returns it without its end, "\n" or "\r\n".
std::string_view TakeLine(std::string_view& text);

} // namespace Framework
