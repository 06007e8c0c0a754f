#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace Samples
{

// A log file being written: UTF-16 little endian after a byte order mark, each line ended by CR LF.
// Every operation throws Failure, with the remedy, when the file cannot be made or written.
class LogFile
{
public:
    // Replaces a file that stands at `path`.
    explicit LogFile(std::filesystem::path path);

    void Write(std::wstring_view line);
    // Writes what is still held back. A file that is not closed this way stays without its last lines.
    void Close();

private:
    struct Closer
    {
        void operator()(void* handle) const noexcept;
    };

    void Flush();

    std::filesystem::path m_path;
    std::unique_ptr<void, Closer> m_handle;
    std::wstring m_strBuffer;
};

} // namespace Samples
