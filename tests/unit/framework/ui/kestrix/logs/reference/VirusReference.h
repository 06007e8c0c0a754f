#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <array>
#include <map>

// The virus log, line by line. Texts are given by their numbers.
class VirusReference
{
public:
    explicit VirusReference(bool fromDatabase) : m_fromDatabase(fromDatabase) {}

    std::optional<ExpectedRecord> operator()(std::wstring_view line)
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        // What a line that is cut leaves of itself stays for those after it.
        Plain::Take(tokens, 2, m_source);
        Plain::Take(tokens, 5, m_type);
        const std::size_t first = IsProxy() ? 7 : 8; // token of the first action
        if (first < tokens.size())
        {
            m_result1 = m_action2 = m_result2 = 0;
        }
        Plain::Take(tokens, first, m_action1);
        Plain::Take(tokens, first + 1, m_result1);
        Plain::Take(tokens, first + 2, m_action2);
        Plain::Take(tokens, first + 3, m_result2);
        if (first + 4 < tokens.size())
        {
            m_detail = tokens[first + 4];
        }
        if (tokens.size() <= first + (m_fromDatabase ? 4 : 3))
        {
            return std::nullopt;
        }
        return Record(tokens);
    }

private:
    // By the number of the action: the texts for a result of 1 and for others, 0 where nothing had to be done, and the
    // icons.
    using Actions = std::map<std::uint32_t, std::array<std::uint32_t, 4>>;

    bool IsProxy() const { return m_source == 1 || m_source == 2 || m_source == 3; }

    ExpectedRecord Record(const std::vector<std::wstring>& tokens) const
    {
        ExpectedRecord record;
        record.fields = {Plain::Time(tokens[1]), Source(), Type()};
        if (IsProxy())
        {
            record.fields.push_back(tokens[4]);
            record.fields.push_back(Plain::Unescaped(tokens[6]) + L" \"" + Plain::Unescaped(tokens[5]) + L"\"");
        }
        else
        {
            record.fields.push_back(tokens[6]);
            record.fields.push_back(tokens[7]);
        }
        record.fields.push_back(Outcome(First, m_action1, m_result1, record.icon));
        const bool secondCounts = (m_action1 == 2 || m_action1 == 3) && m_result1 != 1;
        record.fields.push_back(secondCounts ? Outcome(Second, m_action2, m_result2, record.icon) : std::wstring());
        if (!m_detail.empty())
        {
            record.fields.push_back(m_detail);
        }
        return record;
    }

    std::wstring Source() const
    {
        static const std::map<std::uint32_t, unsigned> texts{{1, 144},        {2, 145},        {3, 146},
                                                             {0x100000, 147}, {0x100001, 148}, {0x100003, 149}};
        const auto found = texts.find(m_source);
        return found == texts.end() ? L"  " : Text(found->second);
    }

    std::wstring Type() const
    {
        if (m_source == 3)
        {
            return Text(153);
        }
        if (m_source == 1 || m_source == 2)
        {
            return Text(152);
        }
        if (m_source != 0x100000 && m_source != 0x100001 && m_source != 0x100003)
        {
            return L"  ";
        }
        return m_type == 0 ? Text(150) : m_type == 1 ? Text(151) : L"  ";
    }

    std::wstring Clean() const { return m_source == 0x100000 && m_type != 2 && m_type != 4 ? Text(30) : Text(317); }

    std::wstring Outcome(const Actions& actions, std::uint32_t action, std::uint32_t result, std::uint32_t& icon) const
    {
        const auto found = actions.find(action);
        if (found == actions.end())
        {
            icon = 2;
            return {};
        }
        const auto& [done, failed, doneIcon, failedIcon] = found->second;
        icon = result == 1 ? doneIcon : failedIcon;
        const unsigned text = result == 1 ? done : failed;
        return text == 0 ? Clean() : Text(text);
    }

    static inline const Actions First{
        {0, {0, 0, 0, 0}},     {1, {802, 803, 1, 2}}, {2, {804, 805, 1, 3}}, {3, {806, 807, 0, 2}},
        {4, {800, 801, 0, 2}}, {25, {0, 0, 1, 1}},    {99, {0, 0, 1, 1}},    {101, {808, 809, 0, 2}},
    };
    static inline const Actions Second{
        {0, {0, 0, 0, 0}}, {1, {802, 803, 1, 2}}, {2, {804, 805, 1, 3}}, {4, {800, 801, 0, 2}}, {101, {808, 809, 1, 2}},
    };

    bool m_fromDatabase;
    std::uint32_t m_source = 0;
    std::uint32_t m_type = 0;
    std::uint32_t m_action1 = 0;
    std::uint32_t m_result1 = 0;
    std::uint32_t m_action2 = 0;
    std::uint32_t m_result2 = 0;
    std::wstring m_detail;
};
