#include "common/Frwk_Utility.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Registry.h"

#include <memory>
#include <new>

namespace Frwk::Utility
{

namespace
{

constexpr wchar_t InstallationKey[] = L"Software\\Veldrane\\Zeptara";

// Every value is read with the same messages, whichever it is.
std::wstring ReadInstallationValue(const wchar_t* name)
{
    using namespace VdCommon::Storage;
    try
    {
        const auto pStorage = std::make_unique<Registry>();
        pStorage->OpenRead(Key::InRegistry(HKEY_LOCAL_MACHINE, InstallationKey), {});
        std::wstring value = pStorage->QueryString(name, {});
        pStorage->Close(false);
        return value;
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        VD_TRACE(Error, L"*** Frwk::Utility::GetInstalledFolder() -  Got VdCommon::Storage::Exception(). [0x%08x]",
                 caught->Code());
    }
    catch (const std::bad_alloc&)
    {
        VD_TRACE(Error, L"*** Frwk::Utility::GetInstalledFolder() -  pStorage was invalid.");
    }
    return {};
}

} // namespace

std::wstring GetInstalledFolder()
{
    return ReadInstallationValue(L"InstalledFolder");
}

std::wstring GetLangName()
{
    return ReadInstallationValue(L"LangName");
}

std::wstring GetLogFolder()
{
    std::wstring folder = GetInstalledFolder();
    if (!folder.empty() && folder.back() != L'\\')
    {
        folder += L'\\';
    }
    return folder + L"Log\\";
}

} // namespace Frwk::Utility
