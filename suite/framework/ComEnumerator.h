#pragma once

#include "suite/common/ComPtr.h"
#include "suite/framework/ComObject.h"

#include <ocidl.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace Framework
{

// An enumerator over what was there when it was made. Kind states the interface, the type Item of what clients get, the
// type Stored of what is kept, and Give(stored), which makes an item with a reference of its own.
template <class Kind>
class ComEnumerator : public ComObject<typename Kind::Interface>
{
public:
    using Item = typename Kind::Item;

    ComEnumerator(ObjectTable& table, std::vector<typename Kind::Stored> items, std::size_t next = 0)
        : ComObject<typename Kind::Interface>(table), m_items(std::move(items)), m_nNext(next)
    {
    }

    STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override
    {
        if (items == nullptr || (fetched == nullptr && count != 1))
        {
            return E_POINTER;
        }
        ULONG given = 0;
        for (; given < count && m_nNext < m_items.size(); ++given)
        {
            items[given] = Kind::Give(m_items[m_nNext++]);
        }
        if (fetched != nullptr)
        {
            *fetched = given;
        }
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override
    {
        const std::size_t left = m_items.size() - m_nNext;
        m_nNext += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override
    {
        m_nNext = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(typename Kind::Interface** copy) override
    {
        return WithoutExceptions(
            [&]
            {
                if (copy == nullptr)
                {
                    return E_POINTER;
                }
                *copy = nullptr;
                *copy = new ComEnumerator(this->m_table, m_items, m_nNext);
                return S_OK;
            });
    }

private:
    const std::vector<typename Kind::Stored> m_items;
    std::size_t m_nNext;
};

} // namespace Framework
