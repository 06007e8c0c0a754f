#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace Samples
{

// What the process ends with.
enum class ExitCode
{
    Done = 0,
    WorkFailed = 1,
    BadCommandLine = 2,
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

inline std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace Samples
