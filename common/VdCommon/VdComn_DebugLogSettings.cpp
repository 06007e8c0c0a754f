#include "common/VdCommon/VdComn_DebugLogSettings.h"

#include "common/VdCommon/VdComn_IniFile.h"
#include "common/VdCommon/VdComn_Registry.h"
#include "common/VdCommon/VdComn_Session.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "common/VdCommon/VdComn_String.h"

#include <iterator>
#include <memory>

namespace VdCommon
{

namespace
{

constexpr wchar_t ServiceSection[] = L"ServiceSession";
constexpr wchar_t InteractiveSection[] = L"InteractiveSession";

std::unique_ptr<Storage::Base> MakeStorage(std::uint32_t kind)
{
    switch (kind)
    {
    case Storage::Key::Registry:
    case Storage::Key::RegistryToo:
        return std::make_unique<Storage::Registry>();
    case Storage::Key::IniFile:
        return std::make_unique<Storage::IniFile>();
    default:
        return nullptr;
    }
}

template <std::size_t size>
void CopyText(wchar_t (&room)[size], const std::wstring& text)
{
    String::CopyTString(room, size, text.c_str());
}

// In the order in which the settings are read, which counts when one of them is missing.
void ReadValues(Storage::Base& storage, DebugLogSettings& settings)
{
    DebugLogConfig& config = settings.config;
    settings.enabled = storage.QueryNumber(L"Enable", 0) != 0;
    settings.levelMask = storage.QueryNumber(L"Level", settings.levelMask);
    config.logProcess = storage.QueryNumber(L"LogProcess", 0);
    config.logUnitType = storage.QueryNumber(L"LogUnitType", 0);
    CopyText(config.logFolder, storage.QueryString(L"LogFolder", {}));
    CopyText(config.logPrefix, storage.QueryString(L"LogPrefix", L"zpt"));
    CopyText(config.logFile, storage.QueryString(L"LogFile", {}));
    CopyText(config.logExtension, storage.QueryString(L"LogExtension", L"log"));
    config.robust = storage.QueryNumber(L"Robust", 0) != 0;
    config.debugger = storage.QueryNumber(L"Debugger", 0) != 0;
}

} // namespace

bool ReadDebugLogSettings(const Storage::Key& key, const std::wstring& moduleName, DebugLogSettings& settings)
{
    ::GetLocalTime(&settings.config.startTime);
    settings.config.serviceSession = IsServiceSession();
    CopyText(settings.config.moduleName, moduleName);
    const std::unique_ptr<Storage::Base> storage = MakeStorage(key.kind);
    if (storage == nullptr)
    {
        return false;
    }
    try
    {
        storage->OpenRead(key, settings.config.serviceSession ? ServiceSection : InteractiveSection);
        ReadValues(*storage, settings);
        storage->Close(false);
    }
    catch (Storage::Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
    }
    return true;
}

} // namespace VdCommon
