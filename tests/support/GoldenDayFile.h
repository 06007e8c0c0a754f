#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// A golden day as its file has it, see GoldenDay.h.
struct GoldenDayFile
{
    // Throws std::runtime_error when the file does not tell the form.
    explicit GoldenDayFile(const std::string& name);

    static std::filesystem::path PathOf(const std::string& name);

    // The names of the days that stand in the folder itself, in their order.
    static std::vector<std::string> Names();

    // The lines below the head [SECTION], without the blank one that ends them; none when there is no such section.
    std::vector<std::string> Section(const std::string& head) const;

    // The lines of the log.
    std::vector<std::wstring> Lines() const;

    // The number of the first line that the log refuses, counted from 1; one more than the last when it takes all.
    std::size_t FirstRefused() const;

    // The lines before that one.
    std::vector<std::wstring> AcceptedLines() const;

    std::string name;
    std::string comment;   // its lines with their ends
    std::string extension; // of the kind
    bool isFromDatabase = false;

private:
    std::map<std::string, std::vector<std::string>> m_sections;
};
