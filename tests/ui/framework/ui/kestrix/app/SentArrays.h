#pragma once

#include "tests/support/ControllerDouble.h"

#include <oleauto.h>

#include <utility>
#include <vector>

// An array of numbers as it was sent: the type and the number of each element.
using SentArray = std::vector<std::pair<VARTYPE, ULONG>>;

// Keeps every array that a controller of the test is sent. It lives as long as calls come.
class SentArrays
{
public:
    explicit SentArrays(ControllerDouble& controller)
    {
        controller.m_onSend = [this](ULONG, LPSAFEARRAY array)
        {
            m_arrays.push_back(ElementsOf(array));
            return S_OK;
        };
    }

    SentArrays(const SentArrays&) = delete;
    SentArrays& operator=(const SentArrays&) = delete;

    const std::vector<SentArray>& All() const { return m_arrays; }

    // The first number of each.
    std::vector<ULONG> Dates() const
    {
        std::vector<ULONG> dates;
        for (const SentArray& array : m_arrays)
        {
            dates.push_back(array.at(0).second);
        }
        return dates;
    }

private:
    static SentArray ElementsOf(SAFEARRAY* array)
    {
        SentArray elements;
        for (LONG i = 0; i < static_cast<LONG>(array->rgsabound[0].cElements); ++i)
        {
            VARIANT element{};
            ::SafeArrayGetElement(array, &i, &element);
            elements.emplace_back(element.vt, element.ulVal);
        }
        return elements;
    }

    std::vector<SentArray> m_arrays;
};
