#include "suite/framework/Registration.h"

#include "common/VdFrwk.h"
#include "suite/framework/ProgramPath.h"

#include <array>
#include <filesystem>
#include <memory>
#include <system_error>

namespace Framework
{

namespace
{

constexpr wchar_t ClassTitle[] = L"Service framework local controller";
constexpr wchar_t ProxyLibrary[] = L"VdFrwkPs.dll";

void Require(LSTATUS status, const char* what)
{
    if (status != ERROR_SUCCESS)
    {
        throw std::system_error(static_cast<int>(status), std::system_category(), what);
    }
}

std::wstring ClassKey()
{
    std::array<wchar_t, 64> text{};
    StringFromGUID2(__uuidof(VdFrwkLocalController), text.data(), static_cast<int>(text.size()));
    return std::wstring(L"CLSID\\") + text.data();
}

void SetDefault(const std::wstring& key, const std::wstring& text)
{
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    Require(RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(), bytes),
            "the class cannot be registered");
}

struct LibraryFreer
{
    void operator()(void* library) const noexcept { FreeLibrary(static_cast<HMODULE>(library)); }
};

// Calls one of the functions with which a library enters itself into the registry or takes itself out.
void CallProxyLibrary(const char* function)
{
    const std::wstring path = (ProgramPath().parent_path() / ProxyLibrary).wstring();
    const std::unique_ptr<void, LibraryFreer> library(LoadLibraryW(path.c_str()));
    const FARPROC found = library ? GetProcAddress(static_cast<HMODULE>(library.get()), function) : nullptr;
    if (found == nullptr)
    {
        Require(static_cast<LSTATUS>(GetLastError()), "VdFrwkPs.dll, which lies beside the service, cannot be used");
    }
    const HRESULT result = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(found))();
    Require(FAILED(result) ? result : ERROR_SUCCESS, "VdFrwkPs.dll cannot enter itself or take itself out");
}

} // namespace

void RegisterServer(const Options& options)
{
    SetDefault(ClassKey(), ClassTitle);
    SetDefault(ClassKey() + L"\\LocalServer32", ServiceCommandLine(ProgramPath().wstring(), options));
    CallProxyLibrary("DllRegisterServer");
}

void UnregisterServer()
{
    const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, ClassKey().c_str());
    CallProxyLibrary("DllUnregisterServer");
    Require(status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status, "the class cannot be taken out of the registry");
}

} // namespace Framework
