// Arrays as the service sends them, read by the viewer and by the service itself.

#include "common/DataConversion/Frwk_ComPrfFwRules.h"
#include "common/DataConversion/Frwk_ComPrfReportSet.h"
#include "common/DataConversion/Frwk_ComPrpChkInternetConn.h"
#include "common/DataConversion/Frwk_ComPrpUrlFilterCategoryCroupList.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "tests/fuzz/Harness.h"
#include "tests/unit/common/ComMemoryWatch.h"
#include "tests/unit/common/WireArray.h"

#include <cwchar>

using namespace Fuzz;

namespace
{

using namespace Frwk::DataTypes;

// Types whose values of zeros the platform takes for values.
constexpr VARTYPE PlainTypes[] = {VT_EMPTY,    VT_NULL,  VT_I2,      VT_I4, VT_R4, VT_R8,  VT_CY,  VT_DATE,
                                  VT_DISPATCH, VT_ERROR, VT_UNKNOWN, VT_I1, VT_I8, VT_UI8, VT_INT, VT_UINT};

constexpr int DeepestNesting = 12;
constexpr ULONG MostElements = 300;

long NumberAt(std::wstring_view word, std::size_t place)
{
    return std::wcstol(std::wstring(word.substr(std::min(word.size(), place))).c_str(), nullptr, 10);
}

// An array, and what the service must read of it: nothing when an element is none that it takes.
struct Made
{
    OwnedArray array;
    std::optional<Framework::List> list;
};

// Makes an array of what the words say, one word an element: b, y, w, n, t, u and o are a BOOL, UI1, UI2, UI4, a text
// with _ for blanks, the null text and a text of odd bytes; v is a value of the type; a is an array of the type, with
// its counts; and what stands in brackets is an array of variants, which may begin with its lower bound.
class ArrayMaker
{
public:
    explicit ArrayMaker(std::wstring_view text) : m_text(text) {}

    Made Make(long lowerBound = 0, int depth = 1)
    {
        std::vector<VARIANT> elements;
        Framework::List list;
        bool isList = lowerBound == 0 && depth <= Framework::DeepestList;
        for (std::wstring_view word = Next(); !word.empty() && word != L")"; word = Next())
        {
            std::optional<Framework::Value> value;
            elements.push_back(Element(word, depth, value));
            isList = isList && value;
            list.push_back(value.value_or(false));
        }
        OwnedArray array{std::span<const VARIANT>(elements)};
        array->rgsabound[0].lLbound = lowerBound;
        return {std::move(array), isList ? std::optional(std::move(list)) : std::nullopt};
    }

private:
    std::wstring_view Next()
    {
        m_text.remove_prefix(std::min(m_text.find_first_not_of(L' '), m_text.size()));
        const std::wstring_view word = m_text.substr(0, m_text.find(L' '));
        m_text.remove_prefix(word.size());
        return word;
    }

    VARIANT Element(std::wstring_view word, int depth, std::optional<Framework::Value>& value)
    {
        const auto number = static_cast<ULONGLONG>(NumberAt(word, 1));
        switch (depth > DeepestNesting ? L'n' : word.front())
        {
        case L'(':
        {
            Made inner = Make(NumberAt(word, 1), depth + 1);
            value = std::move(inner.list);
            return Wire::Array(std::move(inner.array));
        }
        case L'b':
            if (const auto bits = number & 0xFFFF; bits == 0 || bits == 0xFFFF)
            {
                value = bits != 0;
            }
            return Wire::Value(VT_BOOL, number & 0xFFFF);
        case L'y':
            value = static_cast<std::uint8_t>(number);
            return Wire::Value(VT_UI1, number & 0xFF);
        case L'w':
            value = static_cast<std::uint16_t>(number);
            return Wire::Value(VT_UI2, number & 0xFFFF);
        case L't':
        {
            std::wstring text(word.substr(1));
            std::ranges::replace(text, L'_', L' ');
            value = text.find(L'\0') == text.npos ? std::optional(text) : std::nullopt;
            return Wire::Text(text);
        }
        case L'u':
            value = std::wstring();
            return Wire::Value(VT_BSTR, 0);
        case L'o':
            return Wire::Value(VT_BSTR, reinterpret_cast<ULONGLONG>(SysAllocStringByteLen(
                                            reinterpret_cast<const char*>(word.data()),
                                            static_cast<UINT>(word.size() * sizeof(wchar_t) - 1))));
        case L'a':
        {
            const VARIANT array = TypedArray(word, static_cast<VARTYPE>(number));
            if (array.vt == (VT_ARRAY | VT_VARIANT) && array.parray != nullptr && array.parray->cDims == 1 &&
                array.parray->rgsabound[0].cElements == 0 && depth < Framework::DeepestList)
            {
                value = Framework::List();
            }
            return array;
        }
        case L'v':
            return Wire::Value(PlainTypes[number % std::size(PlainTypes)], 0);
        default:
            value = static_cast<std::uint32_t>(number);
            return Wire::Number(static_cast<ULONG>(number));
        }
    }

    // The null array when no count follows, and for a type that arrays do not have here.
    static VARIANT TypedArray(std::wstring_view word, VARTYPE type)
    {
        const bool isKnown = type == VT_VARIANT || type == VT_BSTR || (type >= VT_I2 && type <= VT_R8) ||
                             (type >= VT_UI1 && type <= VT_UI4);
        const std::size_t comma = word.find(L',');
        if (!isKnown || comma == word.npos)
        {
            return Wire::Value(VT_ARRAY | VT_VARIANT, 0);
        }
        const std::size_t second = word.find(L',', comma + 1);
        const auto countAt = [&](std::size_t place)
        { return static_cast<ULONG>(NumberAt(word, place)) % MostElements; };
        return Wire::Array(second == word.npos ? OwnedArray(type, {{countAt(comma + 1), 0}})
                                               : OwnedArray(type, {{countAt(comma + 1), 0}, {countAt(second + 1), 0}}),
                           static_cast<VARTYPE>(VT_ARRAY | type));
    }

    std::wstring_view m_text;
};

// The rule as the service has it.
Framework::Value PlainRule(const FwRule& rule)
{
    const auto bytes = [](const auto& block) { return Framework::List(block.begin(), block.end()); };
    return Framework::List{rule.bFlag0,           rule.nField1,          rule.strName,          rule.nField3,
                           rule.strAppPath,       rule.nRuleType,        rule.nAction,          rule.nField7,
                           rule.nField8,          rule.strSrcIP,         rule.strDstIP,         rule.nField11,
                           rule.nField12,         rule.nField13,         bytes(rule.abField14), bytes(rule.abField15),
                           rule.nProtocolType,    rule.nPortType,        rule.strPortList,      rule.bFlag19,
                           bytes(rule.abField20), bytes(rule.abField21), bytes(rule.abField22)};
}

// What the service reads of the rules that the viewer writes.
std::optional<Framework::List> Sent(const FwRuleList& rules)
{
    ComPrfFwRules array;
    const bool isWritten = array.CreateArray(static_cast<std::uint32_t>(rules.size())) && array.SetPrfFwRules(rules);
    std::optional<Framework::List> list = Framework::ReadArray(array.GetSafeArray());
    array.DestroyArray();
    return isWritten ? list : std::nullopt;
}

// Whether the blocks of bytes of each rule have their sizes. Elements of them that are no bytes read as zeros.
bool HasWholeBlocks(const Framework::List& list)
{
    constexpr std::pair<std::size_t, std::size_t> blocks[] = {{14, 16}, {15, 16}, {20, 20}, {21, 16}, {22, 16}};
    return std::ranges::all_of(
        list,
        [&](const Framework::Value& rule)
        {
            const auto& elements = std::get<Framework::List>(rule);
            return std::ranges::all_of(
                blocks, [&](const auto& block)
                { return std::get<Framework::List>(elements.at(block.first)).size() == block.second; });
        });
}

class VariantReader : public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        const ComMemoryWatch memory;
        const std::size_t outcome = ReadMade(ArrayMaker(text).Make());
        ExpectSame(memory.BlocksOut(), 0, "the blocks that are not given back");
        return outcome;
    }

    static std::size_t ReadMade(const Made& made)
    {
        const OwnedArray& array = made.array;
        const std::size_t rules = ReadRules(made);
        bool isConnected = false;
        ComPrpChkInternetConn connection;
        connection.Attach(array.Get());
        const bool hasConnection = connection.GetPrpChkInternetConn(isConnected);
        PrfReportSet settings;
        ComPrfReportSet report;
        report.Attach(array.Get());
        const bool hasReport = report.GetPrfReportSet(settings);
        std::vector<UrlCategoryGroup> groups;
        ComPrpUrlFilterCategoryGroupList categories;
        categories.Attach(array.Get());
        const bool hasCategories = categories.GetPrpUrlFilterCategoryCroupList(&groups);
        return 1 + rules * 8 + hasConnection + 2 * hasReport + 4 * hasCategories +
               1000 * std::min<std::size_t>(groups.size(), 9);
    }

    static std::size_t ReadRules(const Made& made)
    {
        const OwnedArray& array = made.array;
        FwRuleList rules;
        ComPrfFwRules wire;
        wire.Attach(array.Get());
        const bool isRead = wire.GetPrfFwRules(rules);
        Framework::List plain;
        std::ranges::transform(rules, std::back_inserter(plain), PlainRule);
        Expect(rules.empty() || Sent(rules) == plain, "the service gets other rules");
        const std::optional<Framework::List> list = Framework::ReadArray(array.Get());
        Expect(list == made.list, "the list is another");
        if (!list)
        {
            return isRead;
        }
        ExpectSame(Framework::ReadArray(Framework::MakeArray(*list).get()) == list, true,
                   "whether the list comes back");
        const bool areRules = Framework::AreFirewallRules(*list);
        Expect(!areRules || (isRead && plain == *list), "the viewer reads other rules than those of the service");
        Expect(!isRead || HasWholeBlocks(*list), "the viewer reads rules with blocks of another size");
        return 2 + isRead + 2 * areRules;
    }
};

const Registration<VariantReader> Variant(
    {.name = "variants",
     .reads = "arrays of the service",
     .inputs = 6'000,
     .separators = L" ",
     .words = L"( (7 (-1 ) b0 b-1 b1 y0 y255 w0 w1 w65535 n0 n7 n-1 t ttext u oodd a12 a17,16 a17,20 a8,3 a12,0 "
              L"a12,2,2 a17,0 a19,4 a3,2 v0 v1 v3 v5 v9 v10 v13 tC:\\Program_Files\\a.exe t192.0.2.1"});

} // namespace
