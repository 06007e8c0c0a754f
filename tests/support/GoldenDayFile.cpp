#include "tests/support/GoldenDayFile.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/VisibleText.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace
{

constexpr std::string_view LogHead = "log: ";
constexpr std::string_view FormHead = "form: ";
constexpr std::string_view Heads[] = {"[lines]", "[records]", "[list]", "[pane]", "[export]"};

} // namespace

GoldenDayFile::GoldenDayFile(const std::string& dayName) : name(dayName)
{
    std::istringstream file(ReadBytes(PathOf(name).wstring()));
    std::string form;
    std::vector<std::string>* section = nullptr;
    for (std::string line; std::getline(file, line);)
    {
        if (std::ranges::find(Heads, line) != std::end(Heads))
        {
            if (section != nullptr && !section->empty())
            {
                section->pop_back(); // the blank line between two sections
            }
            section = &m_sections[line.substr(1, line.size() - 2)];
        }
        else if (section != nullptr)
        {
            section->push_back(line);
        }
        else if (line.starts_with('#'))
        {
            comment += line + '\n';
        }
        else if (line.starts_with(LogHead))
        {
            extension = line.substr(LogHead.size());
        }
        else if (line.starts_with(FormHead))
        {
            form = line.substr(FormHead.size());
        }
    }
    if (form != "database" && form != "file")
    {
        throw std::runtime_error(name + ".day has no line \"form: database\" or \"form: file\"");
    }
    isFromDatabase = form == "database";
}

std::filesystem::path GoldenDayFile::PathOf(const std::string& name)
{
    return std::filesystem::path(KESTRIX_GOLDEN_DAYS) / (name + ".day");
}

std::vector<std::string> GoldenDayFile::Names()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KESTRIX_GOLDEN_DAYS))
    {
        if (entry.path().extension() == ".day")
        {
            names.push_back(entry.path().stem().string());
        }
    }
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> GoldenDayFile::Section(const std::string& head) const
{
    const auto found = m_sections.find(head);
    return found == m_sections.end() ? std::vector<std::string>() : found->second;
}

std::size_t GoldenDayFile::FirstRefused() const
{
    for (const std::string& record : Section("records"))
    {
        if (record.ends_with(": refused"))
        {
            return std::stoul(record);
        }
    }
    return Section("lines").size() + 1;
}

std::vector<std::wstring> GoldenDayFile::AcceptedLines() const
{
    std::vector<std::wstring> lines = Lines();
    lines.resize(FirstRefused() - 1);
    return lines;
}

std::vector<std::wstring> GoldenDayFile::Lines() const
{
    std::vector<std::wstring> lines;
    std::ranges::transform(Section("lines"), std::back_inserter(lines), &FromVisible);
    return lines;
}
