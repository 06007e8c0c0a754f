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

#include <utility>

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

int AddressOrder(const std::wstring& first, const std::wstring& second)
{
    const bool isFirstLong = first.find(L':') != first.npos;
    const bool isSecondLong = second.find(L':') != second.npos;
    if (isFirstLong != isSecondLong)
    {
        return isFirstLong ? 1 : -1;
    }
    if (isFirstLong)
    {
        return OrderOf(first, second);
    }
    return AddressNumber(first) < AddressNumber(second) ? -1 : AddressNumber(second) < AddressNumber(first) ? 1 : 0;
}

// The field, empty where the record is shorter.
std::wstring FieldOf(const Fields& record, std::size_t field)
{
    return field < record.size() ? record[field] : std::wstring();
}

int FirewallOrder(const Fields& first, const Fields& second, std::size_t column)
{
    if (column <= 1)
    {
        return OrderOf(FieldOf(first, column + 1), FieldOf(second, column + 1));
    }
    const std::wstring left = FieldOf(first, column + 2);
    const std::wstring right = FieldOf(second, column + 2);
    if (column == 2 || column == 4)
    {
        return AddressOrder(left, right);
    }
    const long leftNumber = std::wcstol(left.c_str(), nullptr, 10);
    const long rightNumber = std::wcstol(right.c_str(), nullptr, 10);
    return leftNumber < rightNumber ? -1 : rightNumber < leftNumber ? 1 : 0;
}

// The text by which the virus log sorts its second column: the second action where there was one.
std::wstring VirusOutcome(const Fields& record)
{
    return FieldOf(record, 6).empty() ? FieldOf(record, 5) : FieldOf(record, 6);
}

// The field by which a column is sorted, of the types that sort by one field.
std::size_t SortField(std::uint32_t type, std::size_t column)
{
    switch (type)
    {
    case LogTypeSpyware:
        return column == 1 ? 5 : column == 2 ? 6 : column;
    case LogTypeVst:
        return column == 1 ? 5 : column == 2 ? 4 : column;
    case LogTypeUpdate:
    case LogTypePrivacy:
    case LogTypeTsc:
        return column == 1 ? 2 : column == 2 ? 1 : column;
    case LogTypeUrlFilter:
    case LogTypePhishing:
    case LogTypeSystemTuner:
        return column == 1 ? 2 : column;
    case LogTypeVirus:
        return column == 2 ? 3 : column;
    default:
        return column;
    }
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

std::wstring ExportLine(std::uint32_t type, const Fields& record)
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

} // namespace

LogReference ReferenceOf(std::uint32_t type, bool fromDatabase, const CategoryService::Groups& groups)
{
    switch (type)
    {
    case LogTypeVirus:
        return VirusReference(fromDatabase);
    case LogTypeUpdate:
        return UpdateReference();
    case LogTypeUrlFilter:
        return UrlFilterReference(groups, L"first");
    case LogTypeFirewall:
        return FirewallReference(LocalAddress);
    case LogTypeTsc:
        return CleanupReference(fromDatabase);
    case LogTypePrivacy:
        return PrivacyReference();
    case LogTypePhishing:
        return PhishingReference();
    case LogTypeVa:
        return VulnerabilityReference();
    case LogTypeSpyware:
        return SpywareReference(fromDatabase);
    case LogTypeVst:
        return SuspiciousChangeReference();
    case LogTypeSystemTuner:
        return TunerReference();
    case LogTypeScan:
        return ScanReference();
    case LogTypeSkippedTask:
        return SkippedTaskReference();
    default:
        throw std::out_of_range("there is no log of this type");
    }
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
    if (type == LogTypeFirewall)
    {
        return FirewallOrder(left, right, column);
    }
    if (type == LogTypeVirus && column == 1)
    {
        return OrderOf(VirusOutcome(left), VirusOutcome(right));
    }
    return OrderOf(FieldOf(left, SortField(type, column)), FieldOf(right, SortField(type, column)));
}

std::wstring PlainExport(std::uint32_t type, const std::vector<Fields>& records)
{
    std::wstring text;
    for (const Fields& record : records)
    {
        text += ExportLine(type, record);
    }
    return text;
}

} // namespace Fuzz
