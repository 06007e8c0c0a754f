#include "tests/unit/suite/samples/SampleFiles.h"

#include "suite/samples/Month.h"

#include <algorithm>
#include <iterator>

namespace Samples
{

Date TestEnd()
{
    using namespace std::chrono;
    return year(2026) / November / 21;
}

std::vector<std::wstring_view> Lines(std::wstring_view text)
{
    std::vector<std::wstring_view> lines;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = text.find(L"\r\n", begin);
        if (end == std::wstring_view::npos)
        {
            ADD_FAILURE() << "no CR LF at the end";
            break;
        }
        lines.push_back(text.substr(begin, end - begin));
        EXPECT_EQ(lines.back().find_first_of(L"\r\n"), std::wstring_view::npos);
        begin = end + 2;
    }
    return lines;
}

Record Split(std::wstring_view line)
{
    Record tokens;
    tokens.reserve(static_cast<std::size_t>(std::ranges::count(line, L'|')) + 1);
    for (std::size_t bar = line.find(L'|'); bar != std::wstring_view::npos; bar = line.find(L'|'))
    {
        tokens.push_back(line.substr(0, bar));
        line.remove_prefix(bar + 1);
    }
    tokens.push_back(line);
    return tokens;
}

int Number(std::wstring_view token)
{
    return std::stoi(std::wstring(token), nullptr, 0);
}

std::wstring Unescape(std::wstring_view text)
{
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] != L'%')
        {
            plain += text[i];
            continue;
        }
        const wchar_t mark = ++i < text.size() ? text[i] : L' ';
        EXPECT_TRUE(mark == L'%' || mark == L'I') << "a lone % in " << std::filesystem::path(text);
        plain += mark == L'I' ? L'|' : L'%';
    }
    return plain;
}

SampleMonth::SampleMonth(std::wstring_view extension, std::uint64_t seed)
{
    const TemporaryFolder folder;
    const Kind* const kind = FindKind(extension);
    WriteMonth(folder.Path(), {&kind, 1}, TestEnd(), 30, seed);
    std::set<std::filesystem::path> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    {
        names.insert(entry.path().filename());
    }
    for (const std::filesystem::path& name : names)
    {
        m_arrText.push_back(ReadUtf16(folder.Path() / name));
    }
    std::vector<std::size_t> ends;
    for (const std::wstring& text : m_arrText)
    {
        std::ranges::transform(Lines(text), std::back_inserter(m_arrRecord), Split);
        ends.push_back(m_arrRecord.size());
    }
    std::size_t begin = 0;
    for (std::size_t day = 0; const std::filesystem::path& name : names)
    {
        m_arrDay.push_back({name, std::span(m_arrRecord).subspan(begin, ends[day] - begin)});
        begin = ends[day++];
    }
}

std::set<std::wstring> Values(const std::vector<Record>& records, std::size_t token)
{
    std::set<std::wstring> values;
    for (const Record& record : records)
    {
        if (token < record.size())
        {
            values.emplace(record[token]);
        }
    }
    return values;
}

std::set<int> Numbers(const std::vector<Record>& records, std::size_t token)
{
    std::set<int> numbers;
    for (const std::wstring& value : Values(records, token))
    {
        numbers.insert(Number(value));
    }
    return numbers;
}

bool IsTime(std::wstring_view token)
{
    if (token.size() != 6 || token.find_first_not_of(L"0123456789") != std::wstring_view::npos)
    {
        return false;
    }
    return token.substr(0, 2) < L"24" && token.substr(2, 2) < L"60" && token.substr(4) < L"60";
}

} // namespace Samples
