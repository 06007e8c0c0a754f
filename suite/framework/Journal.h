#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace Framework
{

// What the service did that cannot be undone, for whoever looks for it later: a text file in UTF-8, a line each with
// the local date and time. A file that has become large is the old one from then on, in the place of the one before. A
// line that cannot be written there stops nobody. Every line goes to the debugger output too. One thread at a time.
class Journal
{
public:
    static constexpr wchar_t FileName[] = L"Framework.log";
    static constexpr wchar_t OldName[] = L"Framework.old.log";
    static constexpr std::uint64_t Limit = 1024 * 1024;

    // No file is touched before the first line.
    explicit Journal(std::filesystem::path folder, std::uint64_t limit = Limit);

    // The text has no line end.
    void Write(const std::string& text) const;

private:
    const std::filesystem::path m_folder;
    const std::uint64_t m_nLimit;
};

} // namespace Framework
