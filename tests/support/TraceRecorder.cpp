#include "tests/support/TraceRecorder.h"

#include "common/VdCommon/VdComn_Storage.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceLibraryDouble.h"

#include <regex>
#include <stdexcept>

namespace
{

constexpr wchar_t LibraryFolder[] = L"..\\tests\\trace-good\\"; // tests run in the folder of the built program

constexpr wchar_t Settings[] = L"[InteractiveSession]\r\nEnable=1\r\nLevel=273\r\n"
                               L"[ServiceSession]\r\nEnable=1\r\nLevel=273\r\n";

constexpr wchar_t AnyTag[] = L"\\.w\\.|@@@|!!!";

const wchar_t* TagOf(VdCommon::TraceLevel level)
{
    switch (level)
    {
    case VdCommon::TraceLevel::Flow:
        return L"\\.w\\.";
    case VdCommon::TraceLevel::Info:
        return L"@@@";
    case VdCommon::TraceLevel::Error:
        return L"!!!";
    }
    throw std::invalid_argument("no level of a trace line");
}

TraceCalls* FreshCalls(HMODULE library)
{
    const auto function = reinterpret_cast<void (*)()>(::GetProcAddress(library, "FreshTraceCalls"));
    return &reinterpret_cast<TraceCallsFunction*>(function)();
}

} // namespace

TraceRecorder::TraceRecorder() : m_module(::LoadLibraryW((std::wstring(LibraryFolder) + L"VdDbg64.dll").c_str()))
{
    if (!m_module)
    {
        throw std::runtime_error("the trace library of the tests is not there");
    }
    m_calls = FreshCalls(m_module.get());
    const TemporaryFolder folder;
    WriteUtf16(folder.File(L"trace.ini"), Settings);
    const auto key = VdCommon::Storage::Key::InIniFile(folder.Path().c_str(), L"trace.ini");
    if (!VdCommon::DebugLog::Instance().Initialize(L"test", key, LibraryFolder) || m_calls->configs.empty())
    {
        throw std::runtime_error("tracing into the tests could not be started");
    }
}

TraceRecorder::~TraceRecorder()
{
    VdCommon::DebugLog::Instance().Uninitialize();
}

std::vector<std::wstring> TraceRecorder::Texts(VdCommon::TraceLevel level) const
{
    return TextsWithTag(TagOf(level));
}

std::vector<std::wstring> TraceRecorder::Texts() const
{
    return TextsWithTag(AnyTag);
}

void TraceRecorder::Clear()
{
    m_calls = FreshCalls(m_module.get()); // there, since the library has a heap of its own
}

// A line is date, time, identifiers, tag, <module>, text, place, line end.
std::vector<std::wstring> TraceRecorder::TextsWithTag(const std::wstring& tag) const
{
    const std::wregex form(L"\\S+ \\S+ \\S+ (?:" + tag + L") <\\S+> ([^]*) - \\S+\\(\\d+\\)\r\n");
    std::vector<std::wstring> texts;
    for (const std::wstring& line : m_calls->lines)
    {
        std::wsmatch match;
        if (std::regex_match(line, match, form))
        {
            texts.push_back(match[1]);
        }
    }
    return texts;
}
