#pragma once

#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Suite
{

// What the process ends with.
enum class ExitCode
{
    Done = 0,
    WorkFailed = 1,
    BadCommandLine = 2,
    PartlyDone = 3,
};

// What stopped the program and how to help it, as UTF-8 text for the user.
class Failure : public std::runtime_error
{
public:
    Failure(ExitCode exitCode, const std::string& text) : std::runtime_error(text), m_exitCode(exitCode) {}

    ExitCode Code() const { return m_exitCode; }

private:
    ExitCode m_exitCode;
};

// Halves of a pair that stand alone become the mark of a character that is none.
inline std::string Utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    std::string bytes(3 * text.size(), '\0'); // no code unit takes more
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                              static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

inline std::string Utf8(const std::wstring& text)
{
    return Utf8(std::wstring_view(text));
}

inline std::string Utf8(const std::filesystem::path& path)
{
    return Utf8(std::wstring_view(path.native()));
}

} // namespace Suite
