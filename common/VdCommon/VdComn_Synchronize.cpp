#include "common/VdCommon/VdComn_Synchronize.h"

#include "common/VdCommon/VdComn_CreationNames.h"
#include "common/VdCommon/VdComn_SecurityAttributes.h"

#include <utility>

namespace VdCommon::Synchronize
{

bool Mutex::Create(const std::wstring& name, const bool& exclusive, const bool& initialOwner)
{
    std::wstring localName;
    if (m_hMutex || !GetCreationName(localName, name))
    {
        return false;
    }
    SecurityAttributes attributes(exclusive ? SecurityAttributes::ExclusiveMutex : SecurityAttributes::SharedMutex,
                                  false);
    // No more rights than the access list of an exclusive mutex grants, so that everyone can open one.
    UniqueKernelHandle mutex(::CreateMutexExW(attributes.Get(), localName.c_str(),
                                              initialOwner ? CREATE_MUTEX_INITIAL_OWNER : 0,
                                              SYNCHRONIZE | MUTEX_MODIFY_STATE));
    const DWORD error = ::GetLastError();
    if (!mutex || (exclusive && error == ERROR_ALREADY_EXISTS))
    {
        return false;
    }
    m_hMutex = std::move(mutex);
    return true;
}

std::uint32_t Mutex::Lock() noexcept
{
    return ::WaitForSingleObject(m_hMutex.get(), m_nWaitMilliseconds);
}

void Mutex::Unlock() noexcept
{
    ::ReleaseMutex(m_hMutex.get());
}

} // namespace VdCommon::Synchronize
