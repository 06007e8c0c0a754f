#pragma once

#include "common/VdFrwk.h"
#include "suite/framework/ComObject.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/Trace.h"
#include "suite/framework/ValueSource.h"

#include <string>

namespace Framework
{

// The profile or the property as clients hold it: values in and out of arrays.
template <class Interface>
class ValuesObject : public ComObject<Interface>
{
public:
    // The source must outlive the object.
    ValuesObject(ObjectTable& table, ValueSource& source) : ComObject<Interface>(table), m_source(source) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        return ComObject<Interface>::QueryInterface(iid == __uuidof(IVdFrwkValues) ? __uuidof(Interface) : iid, object);
    }

    // Replaces the array, if there is one; on failure it stays as it is.
    STDMETHODIMP QueryValue(ULONG type, ULONG subType, ULONG, ULONG, ULONG* word, LPSAFEARRAY* array) override
    {
        return WithoutExceptions(
            [&]
            {
                if (word == nullptr || array == nullptr)
                {
                    return E_POINTER;
                }
                List list;
                const HRESULT result = m_source.Query({type, subType}, list);
                if (SUCCEEDED(result))
                {
                    UniqueSafeArray made = MakeArray(list);
                    UniqueSafeArray replaced(*array);
                    *array = made.release();
                }
                return result;
            });
    }

    STDMETHODIMP SetValue(ULONG type, ULONG subType, ULONG, ULONG, ULONG* word, ULONG* result,
                          LPSAFEARRAY array) override
    {
        return WithoutExceptions(
            [&]
            {
                if (word == nullptr || result == nullptr)
                {
                    return E_POINTER;
                }
                const std::optional<List> list = ReadArray(array);
                const HRESULT answer = list ? m_source.Set({type, subType}, *list) : E_INVALIDARG;
                if (FAILED(answer))
                {
                    Trace("The value " + std::to_string(type) + ", " + std::to_string(subType) +
                          " that a client sets is refused; what is stored stays.");
                }
                return answer;
            });
    }

private:
    ValueSource& m_source;
};

} // namespace Framework
