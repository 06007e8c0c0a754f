#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A folder of its own below the system's temporary folder, removed with all in it.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Whether a folder is called as those of the tests are.
    static bool IsName(std::wstring_view name) { return name.starts_with(Prefix); }

    const std::filesystem::path& Path() const { return m_path; }

    std::wstring File(std::wstring_view name) const { return (m_path / name).wstring(); }

private:
    static constexpr std::wstring_view Prefix = L"KestrixTest-";

    std::filesystem::path m_path;
};

// Replaces the file; throws std::runtime_error when that is not possible.
void WriteBytes(const std::wstring& path, std::string_view bytes);

// The whole file; throws std::runtime_error when it cannot be read.
std::string ReadBytes(const std::wstring& path);

// The bytes of the text as UTF-16, low byte first.
std::string Utf16Bytes(std::wstring_view text);

// Replaces the file by a byte order mark and the text.
void WriteUtf16(const std::wstring& path, std::wstring_view text);

// The text of a UTF-16 file after its byte order mark; throws std::runtime_error when it has none.
std::wstring ReadUtf16(const std::wstring& path);
