#include "suite/framework/RulesTask.h"

#include "common/VdFrwk.h"
#include "suite/common/ComPtr.h"
#include "suite/framework/Apartment.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/RuleText.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/TextFile.h"
#include "suite/framework/Utf8.h"

#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace Framework
{

namespace
{

void Require(HRESULT result, const char* what)
{
    if (FAILED(result))
    {
        throw std::system_error(result, std::system_category(), what);
    }
}

// The thread is in an apartment.
Suite::ComPtr<IVdFrwkProfile> ActiveProfile()
{
    Suite::ComPtr<IVdFrwkLocalController> controller;
    Suite::ComPtr<IVdFrwkProfile> profile;
    Require(CoCreateInstance(__uuidof(VdFrwkLocalController), nullptr, CLSCTX_ALL, __uuidof(IVdFrwkLocalController),
                             controller.PutVoid()),
            "the service cannot be reached, see VdFrwkSvc /RegServer");
    Require(controller->GetActiveProfile(profile.Put()), "the service has no profile");
    return profile;
}

} // namespace

void PrintRules()
{
    const Apartment apartment;
    ULONG word = 0;
    SAFEARRAY* array = nullptr;
    Require(ActiveProfile()->QueryValue(FirewallRules.type, FirewallRules.subType, 0, 0, &word, &array),
            "the service does not tell its rules");
    const UniqueSafeArray owned(array);
    const std::optional<List> rules = ReadArray(array);
    if (!rules || !AreFirewallRules(*rules))
    {
        throw std::runtime_error("the service tells rules that are none");
    }
    std::fputs(RulesText(*rules).c_str(), stdout);
}

void LoadRules(const std::filesystem::path& file)
{
    const std::optional<std::string> text = ReadTextFile(file);
    if (!text)
    {
        throw std::runtime_error("The file " + Narrow(file.wstring()) + " cannot be read.");
    }
    const List rules = ParseRules(*text);
    const Apartment apartment;
    ULONG word = 0;
    ULONG result = 0;
    Require(ActiveProfile()->SetValue(FirewallRules.type, FirewallRules.subType, 0, 0, &word, &result,
                                      MakeArray(rules).get()),
            "the service does not take the rules");
}

} // namespace Framework
