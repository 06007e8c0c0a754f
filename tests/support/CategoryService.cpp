#include "tests/support/CategoryService.h"

#include "suite/samples/UrlCategories.h"

#include <stdexcept>

namespace
{

// A variant of the test, cleared with the object.
class Variant : public VARIANT
{
public:
    Variant() : VARIANT{} { ::VariantInit(this); }

    explicit Variant(const std::wstring& text) : Variant()
    {
        vt = VT_BSTR;
        bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }

    explicit Variant(int number) : Variant()
    {
        vt = VT_I4;
        lVal = number;
    }

    // Takes the array over.
    explicit Variant(LPSAFEARRAY array, VARTYPE type = VT_VARIANT) : Variant()
    {
        vt = VT_ARRAY | type;
        parray = array;
    }

    ~Variant() { ::VariantClear(this); }

    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
};

LPSAFEARRAY MakeArray(std::size_t count, VARTYPE type = VT_VARIANT)
{
    return ::SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
}

void Put(LPSAFEARRAY array, std::size_t index, const Variant& element)
{
    LONG place = static_cast<LONG>(index);
    if (FAILED(::SafeArrayPutElement(array, &place, const_cast<Variant*>(&element)))) // copies it
    {
        throw std::runtime_error("an element of the answer cannot be put");
    }
}

void PutGroup(LPSAFEARRAY groups, std::size_t index, const CategoryService::Groups::value_type& group)
{
    Variant pair(MakeArray(2));
    Put(pair.parray, 0, Variant(group.first));
    Put(pair.parray, 1, Variant(group.second));
    Put(groups, index, pair);
}

// Puts the groups, and one that the client cannot read after them if there is one, into the answer.
HRESULT PutAll(LPSAFEARRAY answer, const CategoryService::Groups& groups, const Variant* bad = nullptr)
{
    Variant all(MakeArray(groups.size() + (bad != nullptr ? 1 : 0)));
    for (std::size_t i = 0; i < groups.size(); ++i)
    {
        PutGroup(all.parray, i, groups[i]);
    }
    if (bad != nullptr)
    {
        Put(all.parray, groups.size(), *bad);
    }
    Put(answer, 0, all);
    return S_OK;
}

HRESULT PutBad(LPSAFEARRAY answer, const Variant& bad)
{
    return PutAll(answer, {}, &bad);
}

HRESULT Replace(LPSAFEARRAY* answer, LPSAFEARRAY other)
{
    ::SafeArrayDestroy(*answer);
    *answer = other;
    return S_OK;
}

LPSAFEARRAY TwoDimensions()
{
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    return ::SafeArrayCreate(VT_VARIANT, 2, bounds);
}

} // namespace

std::vector<CategoryService::BadAnswer> CategoryService::BadAnswers()
{
    return {
        {"the service hangs up before it answers", [](LPSAFEARRAY*) { return HRESULT_FROM_WIN32(RPC_S_CALL_FAILED); }},
        {"the service hangs up in the middle of its answer",
         [](LPSAFEARRAY* answer)
         {
             PutAll(*answer, {{L"03", L"half"}});
             return HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
         }},
        {"no array", [](LPSAFEARRAY* answer) { return Replace(answer, nullptr); }},
        {"an array of no elements", [](LPSAFEARRAY* answer) { return Replace(answer, MakeArray(0)); }},
        {"an array of numbers", [](LPSAFEARRAY* answer) { return Replace(answer, MakeArray(1, VT_I4)); }},
        {"an array of two dimensions", [](LPSAFEARRAY* answer) { return Replace(answer, TwoDimensions()); }},
        {"an empty element", [](LPSAFEARRAY*) { return S_OK; }},
        {"a text for the groups",
         [](LPSAFEARRAY* answer)
         {
             Put(*answer, 0, Variant(L"03"));
             return S_OK;
         }},
        {"no groups", [](LPSAFEARRAY* answer) { return PutAll(*answer, {}); }},
        {"groups that are numbers",
         [](LPSAFEARRAY* answer)
         {
             Put(*answer, 0, Variant(MakeArray(3, VT_I4), VT_I4));
             return S_OK;
         }},
        {"a group that is a text", [](LPSAFEARRAY* answer) { return PutBad(*answer, Variant(L"03")); }},
        {"a group that is a number", [](LPSAFEARRAY* answer) { return PutBad(*answer, Variant(3)); }},
        {"a group of nothing", [](LPSAFEARRAY* answer) { return PutBad(*answer, Variant(MakeArray(0))); }},
        {"a group of a key alone",
         [](LPSAFEARRAY* answer)
         {
             Variant group(MakeArray(1));
             Put(group.parray, 0, Variant(L"03"));
             return PutBad(*answer, group);
         }},
    };
}

CategoryService::CategoryService()
{
    for (const Samples::UrlCategory& category : Samples::UrlCategories)
    {
        m_groups.emplace_back(category.key, category.name);
    }
    Offer(m_groups);
}

void CategoryService::Offer(Groups groups)
{
    m_groups = std::move(groups);
    Answer([this](LPSAFEARRAY* answer) { return PutAll(*answer, m_groups); });
}

void CategoryService::AnswerGroupsAndOneOfNumbers(const Groups& groups)
{
    Answer(
        [groups](LPSAFEARRAY* answer)
        {
            Variant numbers(MakeArray(2));
            Put(numbers.parray, 0, Variant(1));
            Put(numbers.parray, 1, Variant(2));
            return PutAll(*answer, groups, &numbers);
        });
}

void CategoryService::Answer(FillAnswer answer)
{
    m_controller.m_onQuery = [answer = std::move(answer)](ULONG, LPSAFEARRAY* array) { return answer(array); };
}
