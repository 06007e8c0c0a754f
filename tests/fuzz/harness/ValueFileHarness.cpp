// The file in which the service keeps its values.

#include "suite/framework/FirewallRules.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/ValueFile.h"
#include "tests/fuzz/Harness.h"

using namespace Fuzz;

namespace
{

using namespace Framework;

constexpr std::size_t SumSize = 8;

// The same bytes with the check sum of their content, so that the content is looked at: the 64-bit FNV-1a hash.
std::string WithCheckSum(std::string_view input)
{
    std::string bytes(input.substr(0, input.size() - SumSize));
    std::uint64_t sum = 14695981039346656037U;
    for (const char byte : bytes)
    {
        sum = (sum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    for (std::size_t i = 0; i < SumSize; ++i)
    {
        bytes += static_cast<char>(sum >> (8 * i));
    }
    return bytes;
}

class ValueFileReader : public Reader
{
    std::vector<std::wstring> Samples() const override
    {
        return UnitsOf(
            {FileBytes({}), FileBytes({{{1, 1}, {std::wstring(L"text")}}}), FileBytes({{{112, 1}, {7u, 0u, 0u}}}),
             FileBytes({{FirewallRules, {UsualRule(), UsualRule()}}}),
             FileBytes({{{1, 1}, {true, std::uint8_t{1}, std::uint16_t{2}, 3u, std::wstring(L"text"), List{List{}}}},
                        {{1, 2}, {}}})});
    }

    std::size_t Read(std::string_view input) override
    {
        const bool isWhole = ParseFile(input).has_value();
        if (input.size() < SumSize)
        {
            ExpectSame(isWhole, false, "whether a short file has values");
            return 0;
        }
        const std::optional<Values> values = ParseFile(WithCheckSum(input));
        Expect(values || !isWhole, "a good file is none when its sum is worked out again");
        if (!values)
        {
            return 0;
        }
        ExpectSame(FileBytes(*values).size(), input.size(), "the size of a file with these values");
        return 1 + ReadValues(*values);
    }

    // The values are the same after they were written and read, and after they were sent.
    static std::size_t ReadValues(const Values& values)
    {
        Expect(ParseFile(FileBytes(values)) == values, "the values are others after they were written and read");
        std::size_t sent = 0;
        for (const auto& [key, list] : values)
        {
            const std::optional<List> again = ReadArray(MakeArray(list).get());
            Expect(!again || *again == list, "the values are others after they were sent");
            sent += again.has_value();
        }
        return 10 * values.size() + sent;
    }
};

const Registration<ValueFileReader>
    ValueFile({.name = "values", .reads = "the file of the service's values", .form = Form::Bytes, .inputs = 15'000});

} // namespace
