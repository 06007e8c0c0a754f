#pragma once

#include <cstdint>
#include <string_view>

// Who finds threats, by the codes of the virus and the spyware log. All texts are those of the language file and
// literals, and outlive the records.
namespace ThreatSources
{

enum Code : std::uint32_t
{
    MailIn = 1,
    MailOut = 2,
    Web = 3,
    RealTime = 0x100000,
    Manual = 0x100001,
    Scheduled = 0x100003,
};

// Whether the source writes lines of the proxy form.
constexpr bool IsProxy(std::uint32_t source)
{
    return source == MailIn || source == MailOut || source == Web;
}

// Two blanks for a source that is not known.
std::wstring_view SourceText(std::uint32_t source);

// The type of the object in which the source found a threat; two blanks for one that is not known.
std::wstring_view TypeText(std::uint32_t source, std::uint32_t type);

} // namespace ThreatSources
