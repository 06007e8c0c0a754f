#include "tests/e2e/GoldenView.h"

#include <algorithm>
#include <sstream>

namespace
{

// The texts of a line of "N: TEXT".
std::string NumberOf(const std::string& line)
{
    return line.substr(0, line.find(':'));
}

std::string TextOf(const std::string& line)
{
    const std::size_t colon = line.find(": ");
    return colon == line.npos ? std::string() : line.substr(colon + 2);
}

// A row of a pane without what cannot be seen there.
std::string SeenOf(const std::string& row)
{
    const std::string seen = row.substr(0, row.find(" | tip: "));
    return seen.substr(0, seen.find_last_not_of(' ') + 1);
}

std::string WithDoubledQuotes(const std::string& text)
{
    std::string doubled;
    for (const char c : text)
    {
        doubled.append(c == '"' ? 2 : 1, c);
    }
    return doubled;
}

} // namespace

GoldenView::GoldenView(const GoldenDayFile& day) : m_day(day), m_nRefused(day.FirstRefused())
{
    ReadList();
    ReadPanes();
}

std::vector<std::wstring> GoldenView::LogLines() const
{
    return m_day.isFromDatabase ? m_day.AcceptedLines() : m_day.Lines();
}

bool GoldenView::Has(const std::string& number) const
{
    return std::stoul(number) < m_nRefused;
}

void GoldenView::ReadList()
{
    const Lines section = m_day.Section("list");
    for (std::size_t i = 1; i < section.size(); ++i)
    {
        if (!section[i].starts_with("by "))
        {
            m_mapCells[NumberOf(section[i])] = TextOf(section[i]);
            m_arrNumber.push_back(NumberOf(section[i]));
            continue;
        }
        std::istringstream order(section[i].substr(section[i].rfind(": ") + 2));
        Lines& numbers = m_arrOrder.emplace_back();
        for (std::string number; order >> number;)
        {
            numbers.push_back(number);
        }
        std::erase_if(numbers, [this](const std::string& number) { return !Has(number); });
    }
    std::erase_if(m_arrNumber, [this](const std::string& number) { return !Has(number); });
}

void GoldenView::ReadPanes()
{
    Lines* pane = nullptr;
    for (const std::string& line : m_day.Section("pane"))
    {
        if (!line.starts_with("  "))
        {
            pane = &m_mapPane[NumberOf(line)];
        }
        else if (line.find(" | hidden") == line.npos && !line.starts_with("  whole text:") && !line.starts_with("  ("))
        {
            pane->push_back(SeenOf(line.substr(2)));
        }
    }
}

GoldenView::Lines GoldenView::RowsOf(const Lines& numbers) const
{
    Lines rows;
    std::ranges::transform(numbers, std::back_inserter(rows),
                           [this](const std::string& number) { return m_mapCells.at(number); });
    return rows;
}

GoldenView::Lines GoldenView::Export() const
{
    Lines lines = m_day.Section("export");
    lines.erase(lines.begin());
    lines.resize(1 + m_arrNumber.size()); // in the order of the lines, so that those left out are the last
    return lines;
}

GoldenView::Lines GoldenView::ExportOfAllFields() const
{
    Lines lines = {Export().front()};
    for (const std::string& line : m_day.Section("records"))
    {
        if (!line.starts_with("  ") && !Has(NumberOf(line)))
        {
            break;
        }
        if (!line.starts_with("  "))
        {
            lines.emplace_back();
            continue;
        }
        const std::size_t blank = line.find(' ', 2); // after the number of the field
        lines.back() += (lines.back().empty() ? "\"" : "<tab>\"") +
                        WithDoubledQuotes(blank == line.npos ? std::string() : line.substr(blank + 1)) + "\"";
    }
    return lines;
}
