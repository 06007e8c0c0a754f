// What an administrator has set about tracing, in the registry or in an INI file.

#include "common/VdCommon/VdComn_DebugLogSettings.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <cstring>
#include <functional>
#include <tuple>

using namespace Fuzz;

namespace
{

using VdCommon::DebugLogSettings;

constexpr wchar_t SettingsKey[] = L"Software\\Fuzz";
constexpr wchar_t SessionKey[] = L"Software\\Fuzz\\InteractiveSession";
constexpr wchar_t Section[] = L"InteractiveSession";

constexpr const wchar_t* Names[] = {L"Enable",    L"Level",   L"LogProcess",   L"LogUnitType", L"LogFolder",
                                    L"LogPrefix", L"LogFile", L"LogExtension", L"Robust",      L"Debugger"};

constexpr DWORD MostCharacters = 0x10000; // of an INI file

// How one setting is asked for: its name, what it is where it is missing, and what it is then. False for one that is
// missing and has no default, or has another form.
struct Source
{
    std::function<bool(const wchar_t* name, std::uint32_t usual, std::uint32_t& number)> number;
    std::function<bool(const wchar_t* name, const wchar_t* usual, std::wstring& text)> text;
};

// What the source says, in the order of the names and up to the first that it does not know. A text goes up to its
// first terminator.
DebugLogSettings PlainSettings(const Source& source)
{
    DebugLogSettings settings;
    DebugLogConfig& config = settings.config;
    const auto takeFlag = [&](const wchar_t* name, bool& flag)
    {
        std::uint32_t number = 0;
        const bool isTaken = source.number(name, 0, number);
        flag = number != 0;
        return isTaken;
    };
    const auto takeText = [&](const wchar_t* name, const wchar_t* usual, auto& room)
    {
        std::wstring text;
        const bool isTaken = source.text(name, usual, text);
        text.resize(isTaken ? std::min(text.find(L'\0'), text.size()) : 0);
        text.copy(room, std::size(room) - 1);
        return isTaken;
    };
    static_cast<void>(takeFlag(Names[0], settings.enabled) && source.number(Names[1], 256, settings.levelMask) &&
                      source.number(Names[2], 0, config.logProcess) && source.number(Names[3], 0, config.logUnitType) &&
                      takeText(Names[4], L"", config.logFolder) && takeText(Names[5], L"zpt", config.logPrefix) &&
                      takeText(Names[6], L"", config.logFile) && takeText(Names[7], L"log", config.logExtension) &&
                      takeFlag(Names[8], config.robust) && takeFlag(Names[9], config.debugger));
    return settings;
}

// A file has a default for everything. The system is asked with room for any text.
Source PlainFile(const std::wstring& path)
{
    return {[=](const wchar_t* name, std::uint32_t usual, std::uint32_t& number)
            {
                number = GetPrivateProfileIntW(Section, name, static_cast<INT>(usual), path.c_str());
                return true;
            },
            [=](const wchar_t* name, const wchar_t* usual, std::wstring& text)
            {
                text.resize(MostCharacters);
                text.resize(GetPrivateProfileStringW(Section, name, usual, text.data(), MostCharacters, path.c_str()));
                return true;
            }};
}

// The registry has none.
Source PlainRegistry(const RegistrySandbox& registry)
{
    return {[&](const wchar_t* name, std::uint32_t, std::uint32_t& number)
            {
                std::vector<BYTE> bytes;
                const DWORD type = registry.Get(SessionKey, name, bytes);
                const bool isNumber = type == REG_DWORD && bytes.size() == sizeof number;
                if (isNumber)
                {
                    std::memcpy(&number, bytes.data(), sizeof number);
                }
                return isNumber;
            },
            [&](const wchar_t* name, const wchar_t*, std::wstring& text)
            {
                std::vector<BYTE> bytes;
                const DWORD type = registry.Get(SessionKey, name, bytes);
                text.assign(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t));
                return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
            }};
}

auto Parts(const DebugLogSettings& settings)
{
    const DebugLogConfig& config = settings.config;
    return std::tuple(settings.enabled, settings.levelMask, config.logProcess, config.logUnitType,
                      std::wstring(config.logFolder), std::wstring(config.logPrefix), std::wstring(config.logFile),
                      std::wstring(config.logExtension), config.robust, config.debugger);
}

class TraceSettingsReader : public TextReader
{
    // A text that begins with a section is an INI file.
    std::size_t ReadText(std::wstring_view text) override
    {
        return text.starts_with(L'[') ? 1000 + ReadFile(text) : ReadRegistry(text);
    }

    std::size_t ReadFile(std::wstring_view text) const
    {
        const std::wstring path = m_folder.File(L"trace.ini");
        WriteUtf16(path, text);
        const std::wstring folder = m_folder.Path().wstring();
        return ExpectSettings(VdCommon::Storage::Key::InIniFile(folder.c_str(), L"trace.ini"), PlainFile(path));
    }

    // Each line is a value: a digit for its type, one for the bytes that its last character lacks, and its bytes.
    std::size_t ReadRegistry(std::wstring_view text) const
    {
        RegDeleteTreeW(m_registry.Root(), SettingsKey);
        m_registry.MakeKey(SessionKey);
        const std::vector<std::wstring> lines = Pieces(text, L'\n');
        for (std::size_t i = 0; i < std::min(lines.size(), std::size(Names)); ++i)
        {
            const std::wstring& line = lines[i];
            if (line.size() >= 2)
            {
                const std::size_t size = (line.size() - 2) * sizeof(wchar_t);
                m_registry.Set(SessionKey, Names[i], line[0] % 16, line.data() + 2,
                               size - std::min<std::size_t>(size, line[1] % 2));
            }
        }
        return ExpectSettings(VdCommon::Storage::Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey),
                              PlainRegistry(m_registry));
    }

    static std::size_t ExpectSettings(const VdCommon::Storage::Key& key, const Source& source)
    {
        DebugLogSettings settings;
        Expect(VdCommon::ReadDebugLogSettings(key, L"Fuzz", settings), "the settings are not read");
        ExpectSame(Parts(settings), Parts(PlainSettings(source)), "the settings");
        const DebugLogConfig& config = settings.config;
        return 1 + settings.enabled + 2U * config.robust + 4U * config.debugger + 8U * (*config.logFolder != 0) +
               16U * (*config.logPrefix != 0) + 32U * (*config.logFile != 0) + 64U * (*config.logExtension != 0);
    }

    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
};

const Registration<TraceSettingsReader>
    TraceSettings({.name = "tracesettings",
                   .reads = "settings of the trace in the registry and in an INI file",
                   .inputs = 1'500,
                   .separators = L"\n=",
                   .words = L"40 10 11 20 70 30 B0 00 C:\\Trace 10zpt [InteractiveSession]\n [ServiceSession]\n "
                            L"Enable= Level= \nLogFolder= LogPrefix= Robust= =0x11 =-1 =4294967296 =\"a\" ;"});

} // namespace
