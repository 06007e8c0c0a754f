#pragma once

#include "common/DataConversion/Frwk_ComPrfFwRules.h"

#include <algorithm>
#include <cstdint>
#include <random>

// Rules of chance, the same for the same seed: numbers of every size, texts of any characters that a text can have.
class RandomFwRules
{
public:
    using Rule = Frwk::DataTypes::FwRule;

    explicit RandomFwRules(std::uint32_t seed) : m_random(seed) {}

    Rule Next()
    {
        Rule rule;
        for (bool Rule::*const flag : {&Rule::bFlag0, &Rule::bFlag19})
        {
            rule.*flag = (m_random() & 1) != 0;
        }
        for (std::uint16_t Rule::*const number : {&Rule::nField1, &Rule::nField3, &Rule::nRuleType, &Rule::nAction,
                                                  &Rule::nField7, &Rule::nField8, &Rule::nField11, &Rule::nPortType})
        {
            rule.*number = static_cast<std::uint16_t>(m_random());
        }
        for (std::uint32_t Rule::*const number : {&Rule::nField12, &Rule::nField13, &Rule::nProtocolType})
        {
            rule.*number = static_cast<std::uint32_t>(m_random());
        }
        for (std::wstring Rule::*const text :
             {&Rule::strName, &Rule::strAppPath, &Rule::strSrcIP, &Rule::strDstIP, &Rule::strPortList})
        {
            rule.*text = Text();
        }
        for (Rule::Block Rule::*const block : {&Rule::abField14, &Rule::abField15, &Rule::abField21, &Rule::abField22})
        {
            Fill(rule.*block);
        }
        Fill(rule.abField20);
        return rule;
    }

    Frwk::DataTypes::FwRuleList List(std::size_t count)
    {
        Frwk::DataTypes::FwRuleList list;
        std::generate_n(std::back_inserter(list), count, [this] { return Next(); });
        return list;
    }

private:
    // Often empty, sometimes long; lone surrogates too.
    std::wstring Text()
    {
        std::wstring text(m_random() % 4 == 0 ? 0 : m_random() % 30 == 0 ? m_random() % 600 : m_random() % 20, L'\0');
        std::ranges::generate(text, [this] { return static_cast<wchar_t>(1 + m_random() % 0xFFFF); });
        return text;
    }

    template <class Bytes>
    void Fill(Bytes& bytes)
    {
        std::ranges::generate(bytes, [this] { return static_cast<std::uint8_t>(m_random()); });
    }

    std::mt19937 m_random;
};
