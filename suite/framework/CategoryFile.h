#pragma once

#include "suite/framework/Value.h"

#include <filesystem>
#include <mutex>
#include <string>

namespace Framework
{

// The category groups of the URL filter, in a text file beside the kept values. It is for a person to read and to
// change: comments begin with "#", and each other line is a key, "=", and a name, in UTF-8.
class CategoryFile
{
public:
    static constexpr wchar_t FileName[] = L"UrlCategories.txt";

    explicit CategoryFile(const std::filesystem::path& folder) : m_path(folder / FileName) {}

    // What the file has now: a list of key and name for each line, in the order of the lines. Where there is no file,
    // one is made with the categories of the sample logs; they also stand in for a file that can be neither made nor
    // read, and the trace says so. Any thread may call it.
    List Groups() const;

private:
    const std::filesystem::path m_path;
    mutable std::mutex m_mutex; // or a second caller reads a file that the first one is still making
};

// The groups in the text of such a file. A line without "=" counts as a comment.
List ParseCategories(std::string_view text);

} // namespace Framework
