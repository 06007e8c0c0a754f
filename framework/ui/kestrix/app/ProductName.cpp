#include "framework/ui/kestrix/app/ProductName.h"

#include "common/VdCommon/VdComn_Storage.h"

std::wstring GetProductName()
{
    return VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, L"Software\\Veldrane\\Zeptara", L"ProductName", L"");
}
