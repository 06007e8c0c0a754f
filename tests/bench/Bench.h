#pragma once

#include <optional>
#include <string>
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

// The benches, one for each name of the command line. Each throws std::runtime_error when its work cannot be done.
Figures BenchRead();
Figures BenchMemory();
Figures BenchDatabase();
Figures BenchDays();
Figures BenchExport();
Figures BenchTrace();
