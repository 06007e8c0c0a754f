#pragma once

#include <chrono>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>

namespace Framework
{

enum class Task
{
    Serve,
    Register,
    Unregister,
    Exit,
    Rules,
    Help,
};

struct Options
{
    Task task = Task::Serve;
    std::chrono::milliseconds idle{5000}; // how long the service stays when nobody uses it any more
    std::filesystem::path rules{};        // the file that /Rules loads; empty when it prints
};

// A command line that is none; the text says how to do it right.
class BadCommandLine : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Reads the arguments after the program's name. Throws BadCommandLine.
Options ParseCommandLine(std::span<const std::wstring> arguments);

// The command line that starts the service as options.idle says.
std::wstring ServiceCommandLine(const std::wstring& program, const Options& options);

// The text of /?.
std::string HelpText();

} // namespace Framework
