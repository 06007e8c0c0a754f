#pragma once

#include "common/DataConversion/Frwk_ComPrfFwRules.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"

#include <functional>

// A service framework whose active profile keeps rules of the firewall, with the apartment that it needs.
class FirewallService
{
public:
    using Rules = Frwk::DataTypes::FwRuleList;

    FirewallService()
    {
        m_controller.m_onQuery = [this](ULONG type, LPSAFEARRAY* array) { return Answer(type, array); };
        m_controller.m_onSend = [this](ULONG type, LPSAFEARRAY array) { return Store(type, array); };
    }

    ControllerDouble& Controller() { return m_controller; }

    Rules m_rules;
    int m_nWrites = 0;

    // Where set, answers a query in place of the rules.
    std::function<HRESULT(LPSAFEARRAY*)> m_onQuery;

private:
    static constexpr ULONG RulesType = 48;

    HRESULT Answer(ULONG type, LPSAFEARRAY* array) const
    {
        if (type != RulesType)
        {
            return E_INVALIDARG;
        }
        if (m_onQuery)
        {
            return m_onQuery(array);
        }
        Frwk::DataTypes::ComPrfFwRules rules;
        rules.CreateArray(static_cast<std::uint32_t>(m_rules.size()));
        rules.SetPrfFwRules(m_rules);
        *array = rules.GetSafeArray();
        return S_OK;
    }

    HRESULT Store(ULONG type, LPSAFEARRAY array)
    {
        Frwk::DataTypes::ComPrfFwRules rules;
        rules.Attach(array);
        ++m_nWrites;
        return type == RulesType && rules.GetPrfFwRules(m_rules) ? S_OK : E_INVALIDARG;
    }

    const OleApartment m_apartment;
    ControllerDouble m_controller;
};

// The base class of tests in which it has to be there before what asks for it.
struct WithFirewallService
{
    FirewallService m_service;
};
