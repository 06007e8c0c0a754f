#pragma once

#include <filesystem>
#include <functional>
#include <span>
#include <string>

namespace Import
{

// How far an import has come.
struct Progress
{
    std::size_t files = 0; // all that there are to do
    std::size_t done = 0;  // in the database
    std::size_t left = 0;  // left out, each with a message
    unsigned long long records = 0;

    bool IsAtItsEnd() const { return done + left == files; }
};

// Who is told of an import while it runs.
struct Audience
{
    std::function<void(const Progress&)> progress; // after each file, and once when there is none
    std::function<void(const std::string&)> fault; // a sentence for each file that is left out, UTF-8
};

// Puts the records of daily files into the event-log database, which is made when it is missing and there is a file for
// it. A path is that of such a file, or of a folder, of which all daily files are taken and all other files passed
// over. Each file is one transaction and replaces what the database has of its day. One that cannot be taken is left
// out. Throws Suite::Failure when the database cannot be written; what is done stays.
Progress ImportFiles(const std::filesystem::path& database, std::span<const std::filesystem::path> paths,
                     const Audience& audience);

} // namespace Import
