#include "framework/ui/kestrix/app/page/ThreatLink.h"

#include "common/DataConversion/Frwk_ComPrpChkInternetConn.h"
#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_FormatText.h"
#include "common/VdCommon/VdComn_OpenBrowser.h"
#include "common/VdFrwk.h"
#include "platform/dialog/ComPtr.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <string_view>

namespace
{

constexpr ULONG ConnectionProperty = 39;
constexpr ULONG ConnectionElement = 4;

constexpr std::size_t LongestAddress = 2083; // what the browser takes, in characters

bool IsPlain(char byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
           std::string_view("-._~").find(byte) != std::string_view::npos;
}

// The name as a part of an address: what means something there, or would end the browser's argument, is written as the
// numbers of its UTF-8 bytes.
std::wstring Encoded(const std::wstring& name)
{
    const int length = static_cast<int>(name.size());
    std::string bytes(name.size() * 3, '\0'); // the most that UTF-8 takes for a character of UTF-16
    bytes.resize(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, name.data(), length, bytes.data(),
                                                                static_cast<int>(bytes.size()), nullptr, nullptr)));
    constexpr wchar_t Digits[] = L"0123456789ABCDEF";
    std::wstring encoded;
    for (const char byte : bytes)
    {
        if (IsPlain(byte))
        {
            encoded += static_cast<wchar_t>(byte);
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        encoded.append({L'%', Digits[value >> 4], Digits[value & 15]});
    }
    return encoded;
}

// True also when the service does not tell. The array in answer is the caller's to destroy.
bool QueryConnection(IVdFrwkProperty& property, Frwk::DataTypes::ComPrpChkInternetConn& answer)
{
    ULONG word = 0;
    const HRESULT status =
        property.QueryValue(ConnectionProperty, ConnectionElement, 0, 0, &word, answer.GetSafeArrayAddress());
    if (FAILED(status))
    {
        VD_TRACE(Error, L"[CKestrixDlg::ChkInternetConnect()] - pProperty->QueryValue() failed. [0x%08x]", status);
        return true;
    }
    bool connected = true;
    if (!answer.GetPrpChkInternetConn(connected))
    {
        VD_TRACE(Error, L"[CKestrixDlg::ChkInternetConnect()] GetProductType failed");
        return true;
    }
    VD_TRACE(Flow, L"[CKestrixDlg::ChkInternetConnect()] internet connection status = (%d)",
             static_cast<int>(connected));
    VD_TRACE(Flow, L"[Leave] CKestrixDlg::ChkInternetConnect");
    return connected;
}

} // namespace

bool ChkInternetConnect()
{
    VD_TRACE(Flow, L"[Enter] CKestrixDlg::ChkInternetConnect");
    CComPtr<IVdFrwkLocalController> controller;
    if (FAILED(controller.CoCreateInstance(CLSID_VdFrwkLocalController)))
    {
        return true;
    }
    CComPtr<IVdFrwkProperty> property;
    const HRESULT status = controller->GetProperty(property.put());
    if (FAILED(status) || !property)
    {
        VD_TRACE(Error, L"[CKestrixDlg::ChkInternetConnect()] pLocalController->GetProperty failed [%d]", status);
        return true;
    }
    Frwk::DataTypes::ComPrpChkInternetConn answer;
    const bool connected = QueryConnection(*property.get(), answer);
    answer.DestroyArray();
    return connected;
}

void OpenThreatPage(const std::wstring& name)
{
    const std::wstring address = VdCommon::String::FormatText(LoadText(IDS_THREAT_ADDRESS), {Encoded(name)});
    if (address.size() <= LongestAddress)
    {
        VdCommon::OpenWebPage(address);
    }
}

void FollowThreatLink(const std::wstring& name)
{
    if (name.empty())
    {
        return;
    }
    if (!ChkInternetConnect())
    {
        VD_TRACE(Error, L"[CKestrixDlg::OnStnClickedTypesValue] Internet connection is unavailable now..");
        return;
    }
    OpenThreatPage(name);
}
