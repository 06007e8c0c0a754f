#include "framework/ui/kestrix/app/Help.h"

#include "common/Frwk_Utility.h"
#include "common/VdCommon/VdComn_FolderName.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "platform/dialog/SystemLibrary.h"

#include <htmlhelp.h>

#include <string>

namespace
{

constexpr wchar_t HelpKey[] = L"Software\\Veldrane\\Zeptara\\17\\UIFramework\\OLH";
constexpr wchar_t HelpFileValue[] = L"Files";
constexpr wchar_t HelpFile[] = L"vdhelp.chm";

constexpr UINT LanguageCommand = 61439; // of the help window's system menu

using HtmlHelpFunction = HWND WINAPI(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data);

// Null where the platform has no help. The library keeps threads and windows of its own, so it is never unloaded; each
// call after the first finds it loaded.
HtmlHelpFunction* FindHtmlHelp()
{
    const HMODULE library = LoadSystemLibrary(L"hhctrl.ocx");
    if (library == nullptr)
    {
        return nullptr;
    }
    return reinterpret_cast<HtmlHelpFunction*>(reinterpret_cast<void (*)()>(::GetProcAddress(library, "HtmlHelpW")));
}

std::wstring HelpPath()
{
    return VdCommon::WithSeparator(Frwk::Utility::GetInstalledFolder()) +
           VdCommon::Storage::QueryValue(HKEY_LOCAL_MACHINE, HelpKey, HelpFileValue, HelpFile);
}

} // namespace

UINT HelpNumberOfLog(std::uint32_t logType, bool logOnly) noexcept
{
    const LogKind* const kind = FindLogKind(logType);
    return kind == nullptr ? 0 : logOnly ? kind->help : kind->helpBesideReport;
}

void ShowHelpTopic(UINT number)
{
    HtmlHelpFunction* const htmlHelp = FindHtmlHelp();
    if (htmlHelp == nullptr)
    {
        return;
    }
    const HWND window =
        htmlHelp(::GetDesktopWindow(), HelpPath().c_str(), number != 0 ? HH_HELP_CONTEXT : HH_DISPLAY_TOPIC, number);
    if (window != nullptr)
    {
        ::DeleteMenu(::GetSystemMenu(window, FALSE), LanguageCommand, MF_BYCOMMAND);
    }
}
