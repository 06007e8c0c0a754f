#include "common/VdCommon/VdComn_Library.h"

namespace VdCommon::Library
{

Base::~Base()
{
    if (!Free())
    {
        // The platform does not know the module: no second try by the member's own end.
        static_cast<void>(m_hModule.release());
    }
}

bool Base::Free() noexcept
{
    if (m_hModule.get() != nullptr)
    {
        if (!::FreeLibrary(m_hModule.get()))
        {
            return false;
        }
        static_cast<void>(m_hModule.release());
    }
    return true;
}

Wrapper::~Wrapper()
{
    if (m_bBound && Free())
    {
        m_bBound = false; // the pointers went with the derived class
    }
}

bool Wrapper::InitializeLibrary(const std::wstring& path, std::uint32_t* error)
{
    if (m_bBound || Module() != nullptr)
    {
        return StoreError(error, ERROR_OBJECT_ALREADY_EXISTS);
    }
    if (path.empty())
    {
        return StoreError(error, ERROR_BAD_ARGUMENTS);
    }
    m_hModule.reset(::LoadLibraryW(path.c_str()));
    if (Module() == nullptr)
    {
        return StoreError(error, ::GetLastError());
    }
    return Bind(true, error);
}

bool Wrapper::UnInitializeLibrary(std::uint32_t* error)
{
    if (!m_bBound || Module() == nullptr)
    {
        return StoreError(error, ERROR_INVALID_HANDLE);
    }
    if (!Free())
    {
        return StoreError(error, ::GetLastError());
    }
    return Bind(false, error);
}

} // namespace VdCommon::Library
