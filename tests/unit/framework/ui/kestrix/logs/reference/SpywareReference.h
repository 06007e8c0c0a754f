#pragma once

#include "tests/support/LanguageFile.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

#include <map>

// The spyware log, line by line. Texts are given by their numbers.
class SpywareReference
{
public:
    explicit SpywareReference(bool fromDatabase) : m_fromDatabase(fromDatabase) {}

    std::optional<ExpectedRecord> operator()(std::wstring_view line)
    {
        const std::vector<std::wstring> tokens = Plain::Tokens(line);
        m_record = {};
        m_done = false;
        for (std::size_t i = 0; i < tokens.size(); ++i)
        {
            Take(i, tokens[i]);
        }
        if (!m_done)
        {
            return std::nullopt;
        }
        if (m_source >= 1 && m_source <= 3)
        {
            EndProxy();
        }
        return m_record;
    }

private:
    void Add(const std::wstring& text) { m_record.fields.push_back(text); }

    void Take(std::size_t i, const std::wstring& token)
    {
        if (m_source == 0)
        {
            if (i == 1)
            {
                Add(Plain::Time(token));
            }
            else if (i == 2)
            {
                m_source = Plain::NarrowedNumber(token, 0);
                Add(m_source == 0x10000000 ? Text(299) : std::wstring());
            }
        }
        else if (m_source == 0x10000000)
        {
            TakeBehavior(i, token);
        }
        else if (m_source <= 3)
        {
            TakeProxy(i, token);
        }
        else
        {
            TakeScan(i, token);
        }
    }

    void TakeBehavior(std::size_t i, const std::wstring& token)
    {
        const std::uint32_t number = Plain::Number(token);
        if (i == 4)
        {
            const std::map<std::uint32_t, UINT> kinds{{1, 305},  {2, 306},  {4, 307}, {8, 308},
                                                      {16, 309}, {32, 310}, {64, 182}};
            Add(Text(kinds.contains(number) ? kinds.at(number) : 300));
        }
        else if (i == 8)
        {
            Add(token);
        }
        else if (i == 9 && number != 1)
        {
            Add(Text(number == 0 ? 304 : number == 2 ? 311 : 300));
        }
        else if (i == 11 && m_record.fields.size() == 4)
        {
            std::wstring target = Text(token.empty() ? 304 : 312);
            if (!token.empty())
            {
                target.replace(target.find(L"%s"), 2, token.c_str());
            }
            Add(target);
        }
        else if (i == 12)
        {
            Add(Text(number == 1 ? 302 : number == 2 ? 303 : number == 4 ? 301 : 300));
            m_done = m_done || !m_fromDatabase;
        }
        else if (i == 15)
        {
            End(token);
        }
    }

    void TakeScan(std::size_t i, const std::wstring& token)
    {
        if (i == 5)
        {
            m_file = token.substr(0, 260);
        }
        else if (i == 6)
        {
            m_folder = token.substr(0, 388);
        }
        else if (i == 10)
        {
            m_name = token.substr(0, 260);
        }
        else if (i == 12)
        {
            const std::uint32_t code = Plain::NarrowedNumber(token, 10);
            m_record.icon = code == 1 ? 4 : code == 2 ? 1 : 3;
            const std::wstring result = code == 1   ? Text(316)
                                        : code == 2 ? Text(812)
                                        : code == 3 ? Text(813)
                                                    : std::wstring();
            const std::wstring source = m_source == 0x100000   ? Text(147)
                                        : m_source == 0x100001 ? Text(148)
                                        : m_source == 0x100003 ? Text(149)
                                                               : L"  ";
            for (const std::wstring& text : {m_name, m_folder, m_file, result, m_name, source})
            {
                Add(text);
            }
        }
        else if (i == 13)
        {
            Add(token.substr(0, 260));
            m_done = m_done || !m_fromDatabase;
        }
        else if (i == 14)
        {
            End(token);
        }
    }

    void End(const std::wstring& detail)
    {
        m_detail = detail;
        Add(detail);
        m_source = 0;
        m_done = true;
    }

    // What the two sets of proxies keep: mail in the first place, the web in the second.
    void TakeProxy(std::size_t i, const std::wstring& token)
    {
        const std::size_t web = m_source == 3;
        if (i == 4)
        {
            m_proxyName[web] = token.substr(0, 127);
        }
        else if (i == 5)
        {
            m_proxyText[web] = token.substr(0, web ? 512 : 511);
        }
        else if (i == 6 && !web)
        {
            m_proxyItem[m_source - 1] = token.substr(0, m_source == 1 ? 127 : 511);
        }
        else if (i == 7)
        {
            m_proxyAction[web] = Plain::Number(token);
        }
        else if (i == 8)
        {
            m_proxyResult[web] = Plain::Number(token);
            Add(m_proxyName[web]);
            Add(m_proxyItem[m_source - 1]);
            Add(m_proxyText[web]);
            m_done = m_done || !m_fromDatabase;
        }
        else if (i == 9)
        {
            m_detail = token;
            m_done = true;
        }
    }

    void EndProxy()
    {
        const std::size_t web = m_source == 3;
        const std::uint32_t action = m_proxyAction[web];
        const bool done = m_proxyResult[action == 201 ? 0 : web] == 1;
        const std::map<std::uint32_t, UINT> texts{{3, 807}, {4, 801}, {101, 809}, {201, 811}};
        Add(action == 0              ? Text(317)
            : texts.contains(action) ? Text(texts.at(action) - (done ? 1 : 0))
                                     : std::wstring());
        Add(m_proxyName[web]);
        Add(Text(143 + m_source));
        Add(Text(web ? 153 : 152));
        Add(m_detail);
        m_source = 0;
    }

    bool m_fromDatabase;
    bool m_done = false;
    ExpectedRecord m_record;
    std::uint32_t m_source = 0;
    std::wstring m_file;
    std::wstring m_folder;
    std::wstring m_name;
    std::wstring m_detail;
    std::wstring m_proxyName[2];
    std::wstring m_proxyText[2];
    std::wstring m_proxyItem[3]; // the last stays empty
    std::uint32_t m_proxyAction[2] = {};
    std::uint32_t m_proxyResult[2] = {};
};
