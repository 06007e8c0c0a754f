#include "tests/fuzz/LogReferences.h"

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/CleanupReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/FirewallReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PhishingReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PrivacyReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/ScanReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/SkippedTaskReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/SpywareReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/SuspiciousChangeReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/TunerReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/UpdateReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/UrlFilterReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/VirusReference.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/VulnerabilityReference.h"

#include <winsock2.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>

namespace Fuzz
{

namespace
{

int OrderOf(const std::wstring& first, const std::wstring& second)
{
    return first < second ? -1 : second < first ? 1 : 0;
}

// The bytes of the address one after the other, as one number; those of 255.255.255.255 for a text that is none.
std::uint32_t AddressNumber(const std::wstring& text)
{
    std::string narrow(text.size() * 4 + 1, '\0');
    WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    const std::uint32_t address = inet_addr(narrow.c_str());
    return address << 24 | (address & 0xFF00) << 8 | (address >> 8 & 0xFF00) | address >> 24;
}

// Those of a version that has colons stand after all others, as texts.
int AddressOrder(const std::wstring& first, const std::wstring& second)
{
    const auto key = [](const std::wstring& text)
    {
        const bool isLong = text.find(L':') != text.npos;
        return std::tuple(isLong, isLong ? 0 : AddressNumber(text), isLong ? text : std::wstring());
    };
    return key(first) < key(second) ? -1 : key(second) < key(first) ? 1 : 0;
}

int NumberOrder(const std::wstring& first, const std::wstring& second)
{
    const long left = std::wcstol(first.c_str(), nullptr, 10);
    const long right = std::wcstol(second.c_str(), nullptr, 10);
    return left < right ? -1 : right < left ? 1 : 0;
}

// The field, empty where the record is shorter.
const std::wstring& FieldOf(const Fields& record, std::size_t field)
{
    static const std::wstring none;
    return field < record.size() ? record[field] : none;
}

// How a column is sorted: by which field, and by what of it.
struct SortKey
{
    std::uint32_t type;
    std::size_t column;
    std::size_t field;
    int (*order)(const std::wstring& first, const std::wstring& second) = &OrderOf;
};

// The columns that are not sorted by the text of the field of their number.
constexpr SortKey SortKeys[] = {
    {LogTypeSpyware, 1, 5},
    {LogTypeSpyware, 2, 6},
    {LogTypeVst, 1, 5},
    {LogTypeVst, 2, 4},
    {LogTypeUpdate, 1, 2},
    {LogTypeUpdate, 2, 1},
    {LogTypePrivacy, 1, 2},
    {LogTypePrivacy, 2, 1},
    {LogTypeTsc, 1, 2},
    {LogTypeTsc, 2, 1},
    {LogTypeUrlFilter, 1, 2},
    {LogTypePhishing, 1, 2},
    {LogTypeSystemTuner, 1, 2},
    {LogTypeVirus, 2, 3},
    {LogTypeFirewall, 0, 1},
    {LogTypeFirewall, 1, 2},
    {LogTypeFirewall, 2, 4, &AddressOrder},
    {LogTypeFirewall, 3, 5, &NumberOrder},
    {LogTypeFirewall, 4, 6, &AddressOrder},
    {LogTypeFirewall, 5, 7, &NumberOrder},
};

// The text by which the virus log sorts its second column: the second action where there was one.
const std::wstring& VirusOutcome(const Fields& record)
{
    return FieldOf(record, 6).empty() ? FieldOf(record, 5) : FieldOf(record, 6);
}

std::wstring Quoted(const std::wstring& field)
{
    std::wstring text = L"\"";
    for (const wchar_t c : field)
    {
        text += c == L'\n' ? L"\r\n" : c == L'"' ? L"\"\"" : std::wstring(1, c);
    }
    return text + L"\"";
}

} // namespace

LogReference ReferenceOf(std::uint32_t type, bool fromDatabase, const CategoryService::Groups& groups)
{
    const std::map<std::uint32_t, LogReference> references{
        {LogTypeVirus, VirusReference(fromDatabase)},
        {LogTypeUpdate, UpdateReference()},
        {LogTypeUrlFilter, UrlFilterReference(groups, L"first")},
        {LogTypeFirewall, FirewallReference(LocalAddressOf(fromDatabase))},
        {LogTypeTsc, CleanupReference(fromDatabase)},
        {LogTypePrivacy, PrivacyReference()},
        {LogTypePhishing, PhishingReference()},
        {LogTypeVa, VulnerabilityReference()},
        {LogTypeSpyware, SpywareReference(fromDatabase)},
        {LogTypeVst, SuspiciousChangeReference()},
        {LogTypeSystemTuner, TunerReference()},
        {LogTypeScan, ScanReference()},
        {LogTypeSkippedTask, SkippedTaskReference()}};
    return references.at(type);
}

int PlainOrder(std::uint32_t type, const Fields& first, const Fields& second, std::size_t column, bool isUp)
{
    if (column >= first.size() || column >= second.size())
    {
        return 0;
    }
    // The log of the tuner sorts its second column downwards both times.
    const bool isDown = !isUp || (type == LogTypeSystemTuner && column == 1);
    const Fields& left = isDown ? second : first;
    const Fields& right = isDown ? first : second;
    if (type == LogTypeVirus && column == 1)
    {
        return OrderOf(VirusOutcome(left), VirusOutcome(right));
    }
    const auto isOfColumn = [&](const SortKey& key) { return key.type == type && key.column == column; };
    const auto* const found = std::ranges::find_if(SortKeys, isOfColumn);
    const SortKey key = found == std::end(SortKeys) ? SortKey{type, column, column} : *found;
    return key.order(FieldOf(left, key.field), FieldOf(right, key.field));
}

std::wstring PlainExport(std::uint32_t type, const Fields& record)
{
    Fields written;
    for (std::size_t i = 0; i < record.size(); ++i)
    {
        const bool isLeftOut = type == LogTypeFirewall && i == 3 && i + 1 < record.size();
        if (!isLeftOut)
        {
            written.push_back(record[i]);
        }
    }
    if (type == LogTypePhishing)
    {
        written.clear();
        for (const std::size_t field : {0, 2, 3, 4, 5})
        {
            written.push_back(FieldOf(record, field));
        }
    }
    std::wstring line;
    for (const std::wstring& field : written)
    {
        line += (&field == written.data() ? L"" : L"\t") + Quoted(field);
    }
    return line + L"\r\n";
}

} // namespace Fuzz
