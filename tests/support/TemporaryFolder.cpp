#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <cstring>
#include <fstream>
#include <stdexcept>

namespace
{

constexpr std::string_view Mark = "\xFF\xFE";

} // namespace

TemporaryFolder::TemporaryFolder()
{
    static unsigned s_number = 0;
    m_path = std::filesystem::temp_directory_path() /
             (std::wstring(Prefix) + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++s_number));
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored); // of a test that was killed under this process number
    std::filesystem::create_directories(m_path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void WriteBytes(const std::wstring& path, std::string_view bytes)
{
    std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
    {
        throw std::runtime_error("a file of the test cannot be written");
    }
}

std::string ReadBytes(const std::wstring& path)
{
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file)
    {
        throw std::runtime_error("a file of the test cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Utf16Bytes(std::wstring_view text)
{
    static_assert(sizeof(wchar_t) == 2);
    std::string bytes(text.size() * sizeof(wchar_t), '\0');
    if (!bytes.empty())
    {
        std::memcpy(bytes.data(), text.data(), bytes.size());
    }
    return bytes;
}

void WriteUtf16(const std::wstring& path, std::wstring_view text)
{
    WriteBytes(path, std::string(Mark) + Utf16Bytes(text));
}

std::wstring ReadUtf16(const std::wstring& path)
{
    const std::string bytes = ReadBytes(path);
    if (!bytes.starts_with(Mark))
    {
        throw std::runtime_error("the file has no byte order mark");
    }
    std::wstring text((bytes.size() - Mark.size()) / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data() + Mark.size(), text.size() * sizeof(wchar_t));
    return text;
}
