#pragma once

#include "platform/dialog/ComUse.h"
#include "tests/support/ControllerDouble.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

// A service framework that offers category groups of the URL filter, those of the sample logs at first. The thread must
// have an apartment.
class CategoryService
{
public:
    using Groups = std::vector<std::pair<std::wstring, std::wstring>>; // key and name
    using FillAnswer = std::function<HRESULT(LPSAFEARRAY*)>;           // given the array that the client made

    // An answer that has no groups in it, or none that a client may read.
    struct BadAnswer
    {
        const char* name;
        FillAnswer answer;
    };

    static std::vector<BadAnswer> BadAnswers();

    CategoryService();

    void Offer(Groups groups);

    const Groups& Offered() const { return m_groups; }

    // Behind the groups there is one whose two elements are numbers.
    void AnswerGroupsAndOneOfNumbers(const Groups& groups);

    void Answer(FillAnswer answer);

    ControllerDouble& Controller() { return m_controller; }

private:
    ControllerDouble m_controller;
    Groups m_groups;
};

// For a fixture, as its first base: whatever follows finds the service.
class WithCategoryService
{
protected:
    WithCategoryService() = default;

private:
    const ComUse m_com;

protected:
    CategoryService m_service;
};
