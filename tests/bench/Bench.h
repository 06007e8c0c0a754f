#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// One figure: a value, and what the same work takes in its plainest form, in the same unit.
struct Figure
{
    std::string name;
    double value;
    std::string unit;
    double reference;
    std::optional<double> budget; // how often the reference the value may be; none for a figure that is only shown

    double Ratio() const { return value / reference; }

    bool IsWithinBudget() const { return !budget || Ratio() <= *budget; }
};

using Figures = std::vector<Figure>;

// Throws std::runtime_error with the message where the condition does not hold.
inline void Require(bool condition, const char* message)
{
    if (!condition)
    {
        throw std::runtime_error(message);
    }
}

// The letters of a kind, which are ASCII, for the name of a figure.
std::string Narrow(std::wstring_view letters);

// The folder of the built program and what lies beside it, whatever the current folder is.
std::filesystem::path ProductFolder();

// The benches, one for each name of the command line. Each throws std::runtime_error when its work cannot be done.
Figures BenchRead();
Figures BenchMemory();
Figures BenchDatabase();
Figures BenchDays();
Figures BenchList();
Figures BenchSort();
Figures BenchClear();
Figures BenchFind();
Figures BenchDay();
Figures BenchClose();
Figures BenchExport();
Figures BenchTrace();
Figures BenchStart();
Figures BenchRules();
Figures BenchDelete();
Figures BenchReport();
