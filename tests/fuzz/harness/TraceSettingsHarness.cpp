// What an administrator has set about tracing, in the registry or in an INI file.

#include "common/VdCommon/VdComn_DebugLogSettings.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "tests/fuzz/harness/Harnesses.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <tuple>

namespace Fuzz
{

namespace
{

using VdCommon::DebugLogSettings;

constexpr wchar_t SettingsKey[] = L"Software\\Fuzz";
constexpr wchar_t SessionKey[] = L"Software\\Fuzz\\InteractiveSession";
constexpr wchar_t Section[] = L"InteractiveSession";

constexpr const wchar_t* Names[] = {L"Enable",    L"Level",   L"LogProcess",   L"LogUnitType", L"LogFolder",
                                    L"LogPrefix", L"LogFile", L"LogExtension", L"Robust",      L"Debugger"};

constexpr DWORD MostCharacters = 0x10000; // of an INI file

// A value of the registry as a line of an input tells it: a digit for its type, one for the bytes that its last
// character lacks, and its bytes.
struct Value
{
    DWORD type;
    std::string bytes;
};

std::optional<Value> ValueOf(std::wstring_view line)
{
    if (line.size() < 2)
    {
        return std::nullopt;
    }
    const std::wstring_view data = line.substr(2);
    std::string bytes(reinterpret_cast<const char*>(data.data()), data.size() * sizeof(wchar_t));
    bytes.resize(bytes.size() - std::min<std::size_t>(bytes.size(), line[1] % 2));
    return Value{static_cast<DWORD>(line[0] % 16), bytes};
}

bool TakeNumber(const std::optional<Value>& value, std::uint32_t& number)
{
    const bool isNumber = value && value->type == REG_DWORD && value->bytes.size() == sizeof number;
    if (isNumber)
    {
        std::memcpy(&number, value->bytes.data(), sizeof number);
    }
    return isNumber;
}

bool TakeFlag(const std::optional<Value>& value, bool& flag)
{
    std::uint32_t number = flag;
    const bool isNumber = TakeNumber(value, number);
    flag = number != 0;
    return isNumber;
}

// Up to the first terminator, as far as there is room.
template <std::size_t room>
bool TakeText(const std::optional<Value>& value, wchar_t (&text)[room])
{
    const bool isText = value && (value->type == REG_SZ || value->type == REG_EXPAND_SZ || value->type == REG_MULTI_SZ);
    for (std::size_t i = 0; isText && i + 1 < room && 2 * i + 1 < value->bytes.size(); ++i)
    {
        std::memcpy(&text[i], value->bytes.data() + 2 * i, sizeof(wchar_t));
        if (text[i] == L'\0')
        {
            break;
        }
    }
    return isText;
}

// What the values say, in their order and up to the first that is missing or of another form.
DebugLogSettings PlainSettings(const std::vector<std::optional<Value>>& values)
{
    DebugLogSettings settings;
    DebugLogConfig& config = settings.config;
    static_cast<void>(TakeFlag(values[0], settings.enabled) && TakeNumber(values[1], settings.levelMask) &&
                      TakeNumber(values[2], config.logProcess) && TakeNumber(values[3], config.logUnitType) &&
                      TakeText(values[4], config.logFolder) && TakeText(values[5], config.logPrefix) &&
                      TakeText(values[6], config.logFile) && TakeText(values[7], config.logExtension) &&
                      TakeFlag(values[8], config.robust) && TakeFlag(values[9], config.debugger));
    return settings;
}

// What the file says, with the defaults of what is not in it. The system is asked with room for any text.
DebugLogSettings PlainSettings(const std::wstring& path)
{
    const auto number = [&](const wchar_t* name, int usual)
    { return GetPrivateProfileIntW(Section, name, usual, path.c_str()); };
    const auto take = [&](const wchar_t* name, const wchar_t* usual, auto& room)
    {
        std::wstring text(MostCharacters, L'\0');
        GetPrivateProfileStringW(Section, name, usual, text.data(), MostCharacters, path.c_str());
        text.copy(room, std::size(room) - 1);
    };
    DebugLogSettings settings;
    DebugLogConfig& config = settings.config;
    settings.enabled = number(L"Enable", 0) != 0;
    settings.levelMask = number(L"Level", 256);
    config.logProcess = number(L"LogProcess", 0);
    config.logUnitType = number(L"LogUnitType", 0);
    take(L"LogFolder", L"", config.logFolder);
    take(L"LogPrefix", L"zpt", config.logPrefix);
    take(L"LogFile", L"", config.logFile);
    take(L"LogExtension", L"log", config.logExtension);
    config.robust = number(L"Robust", 0) != 0;
    config.debugger = number(L"Debugger", 0) != 0;
    return settings;
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
    std::vector<std::wstring> Texts() const override
    {
        return {
            std::wstring(
                L"40\1\0\n40\x0111\0\n40\3\0\n40\4\0\n10C:\\Trace\0\n10pre\0\n20file\0\n70txt\0\0\n40\1\0\n40\0\0", 60),
            std::wstring(L"40\1\0\n40\x10\0\n40\0\0\n40\0\0\n11unterminated\n10\n", 45),
            L"[InteractiveSession]\nEnable=1\nLevel=17\nLogProcess=0x3\nLogUnitType=-4\nLogFolder=C:\\Trace\n"
            L"LogPrefix=pre\nLogFile=\"a file\"\nLogExtension=txt\nRobust=1\nDebugger=0\n",
            L"[InteractiveSession]\nLogFile=" + std::wstring(255, L'x') + L"\nLogPrefix=" + std::wstring(511, L'x')};
    }

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
        return ExpectSettings(VdCommon::Storage::Key::InIniFile(folder.c_str(), L"trace.ini"), PlainSettings(path));
    }

    std::size_t ReadRegistry(std::wstring_view text) const
    {
        RegDeleteTreeW(m_registry.Root(), SettingsKey);
        m_registry.MakeKey(SessionKey);
        std::vector<std::wstring> lines = Pieces(text, L'\n');
        lines.resize(std::size(Names));
        std::vector<std::optional<Value>> values;
        std::ranges::transform(lines, std::back_inserter(values), &ValueOf);
        for (std::size_t i = 0; i < values.size(); ++i)
        {
            if (values[i])
            {
                m_registry.Set(SessionKey, Names[i], values[i]->type, values[i]->bytes.data(), values[i]->bytes.size());
            }
        }
        return ExpectSettings(VdCommon::Storage::Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey),
                              PlainSettings(values));
    }

    static std::size_t ExpectSettings(const VdCommon::Storage::Key& key, const DebugLogSettings& expected)
    {
        DebugLogSettings settings;
        Expect(VdCommon::ReadDebugLogSettings(key, L"Fuzz", settings), "the settings are not read");
        ExpectSame(Parts(settings), Parts(expected), "the settings");
        const DebugLogConfig& config = settings.config;
        return 1 + settings.enabled + 2U * config.robust + 4U * config.debugger + 8U * (*config.logFolder != 0) +
               16U * (*config.logPrefix != 0) + 32U * (*config.logFile != 0) + 64U * (*config.logExtension != 0);
    }

    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
};

} // namespace

constinit const Harness TraceSettingsHarness{
    .name = "tracesettings",
    .reads = "settings of the trace in the registry and in an INI file",
    .form = Form::Utf16,
    .inputs = 1'500,
    .separators = L"\n=",
    .words = L"40 10 11 20 70 30 B0 00 C:\\Trace 10zpt [InteractiveSession]\n [ServiceSession]\n "
             L"Enable= Level= \nLogFolder= LogPrefix= Robust= =0x11 =-1 =4294967296 =\"a\" ;",
    .make = &Make<TraceSettingsReader>};

} // namespace Fuzz
