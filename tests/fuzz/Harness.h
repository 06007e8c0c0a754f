#pragma once

#include "tests/support/Pieces.h"

#include <gtest/gtest-printers.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// What the fuzzer tries: one harness for each reader of data that somebody else wrote.
namespace Fuzz
{

// What inputs are made of: bytes, or characters of one of the two encodings. A text of UTF-16 has its low bytes first.
enum class Form
{
    Bytes,
    Utf8,
    Utf16,
};

// The units of an input, in which it is changed and kept: the characters of UTF-16, otherwise a byte each.
inline std::wstring UnitsOf(std::string_view input, Form form)
{
    const auto* const bytes = reinterpret_cast<const unsigned char*>(input.data());
    const auto* const units = reinterpret_cast<const wchar_t*>(input.data());
    return form == Form::Utf16 ? std::wstring(units, input.size() / sizeof(wchar_t))
                               : std::wstring(bytes, bytes + input.size());
}

inline std::vector<std::wstring> UnitsOf(const std::vector<std::string>& inputs)
{
    std::vector<std::wstring> units;
    std::ranges::transform(inputs, std::back_inserter(units),
                           [](const std::string& input) { return UnitsOf(input, Form::Bytes); });
    return units;
}

// The input that has these units, of which a byte is the lower half.
inline std::string InputOf(std::wstring_view units, Form form)
{
    const auto* const bytes = reinterpret_cast<const char*>(units.data());
    return form == Form::Utf16 ? std::string(bytes, units.size() * sizeof(wchar_t))
                               : std::string(units.begin(), units.end());
}

// A reader that did what it must not, and what that was.
class Finding : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Throws a Finding when it does not hold.
inline void Expect(bool holds, const std::string& what)
{
    if (!holds)
    {
        throw Finding(what);
    }
}

template <class Found, class Expected>
void ExpectSame(const Found& found, const Expected& expected, const std::string& what)
{
    if (!(found == expected))
    {
        throw Finding(what + "\n  is        " + testing::PrintToString(found) + "\n  should be " +
                      testing::PrintToString(expected));
    }
}

// What a harness reads with. Made once for a run, it must read an input the same whatever was read before.
class Reader
{
public:
    Reader() = default;
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    virtual ~Reader() = default;

    // The units of good inputs that are made by code; others lie among the kept ones.
    virtual std::vector<std::wstring> Samples() const { return {}; }

    // Reads the input, after which stands a page that cannot be touched. Returns a number for what became of it, 0
    // when it was refused: an input with a new one took another way through the reader, and others are made from it.
    // Any exception is a finding, and so is a good input that is refused.
    virtual std::size_t Read(std::string_view input) = 0;
};

// The same for texts of UTF-16.
class TextReader : public Reader
{
    std::size_t Read(std::string_view input) final
    {
        return ReadText({reinterpret_cast<const wchar_t*>(input.data()), input.size() / sizeof(wchar_t)});
    }

    virtual std::size_t ReadText(std::wstring_view text) = 0;
};

struct Harness
{
    std::string name;
    std::string_view reads; // for the list of the harnesses
    Form form = Form::Utf16;
    std::size_t inputs;             // of a run that is part of the tests
    std::wstring_view separators{}; // that stand between the pieces of a text
    std::wstring_view words{};      // pieces that mean something to the reader, with a blank between them
    std::unique_ptr<Reader> (*make)() = nullptr;
};

// All harnesses.
inline std::vector<Harness>& Harnesses()
{
    static std::vector<Harness> harnesses;
    return harnesses;
}

// Puts a harness among them, with the reader of this class.
template <class Kind>
struct Registration
{
    explicit Registration(Harness harness)
    {
        harness.make = []() -> std::unique_ptr<Reader> { return std::make_unique<Kind>(); };
        Harnesses().push_back(harness);
    }
};

} // namespace Fuzz
