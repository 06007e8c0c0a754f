#include "suite/framework/ValueFile.h"

#include <concepts>
#include <utility>

namespace Framework
{

namespace
{

constexpr std::string_view Mark = "VdFrwk\x1A\x01"; // the last byte is the version

// The 64-bit FNV-1a hash.
std::uint64_t CheckSum(std::string_view bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const char byte : bytes)
    {
        sum = (sum ^ static_cast<std::uint8_t>(byte)) * 0x100000001b3;
    }
    return sum;
}

class Writer
{
public:
    template <std::unsigned_integral Number>
    void Put(Number number)
    {
        for (std::size_t i = 0; i < sizeof number; ++i)
        {
            m_bytes += static_cast<char>(number >> (8 * i));
        }
    }

    void Put(bool value) { Put(std::uint8_t{value}); }

    void Put(const std::wstring& text)
    {
        Put(static_cast<std::uint32_t>(text.size()));
        for (const wchar_t unit : text)
        {
            Put(static_cast<std::uint16_t>(unit));
        }
    }

    void Put(const List& list)
    {
        Put(static_cast<std::uint32_t>(list.size()));
        for (const Value& value : list)
        {
            Put(static_cast<std::uint8_t>(value.index()));
            std::visit([this](const auto& part) { Put(part); }, static_cast<const ValueAlternatives&>(value));
        }
    }

    void Put(std::string_view bytes) { m_bytes += bytes; }

    std::string& Bytes() { return m_bytes; }

private:
    std::string m_bytes;
};

// Each Take returns false when the bytes end too early or say something that is never written.
class Reader
{
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    bool IsAtEnd() const { return m_bytes.empty(); }

    template <std::unsigned_integral Number>
    bool Take(Number& number)
    {
        if (m_bytes.size() < sizeof number)
        {
            return false;
        }
        std::uint64_t read = 0;
        for (std::size_t i = 0; i < sizeof number; ++i)
        {
            read |= std::uint64_t{static_cast<std::uint8_t>(m_bytes[i])} << (8 * i);
        }
        number = static_cast<Number>(read);
        m_bytes.remove_prefix(sizeof number);
        return true;
    }

    bool Take(bool& value)
    {
        std::uint8_t byte = 0;
        const bool isGood = Take(byte) && byte <= 1;
        value = byte != 0;
        return isGood;
    }

    bool Take(std::wstring& text)
    {
        std::uint32_t length = 0;
        if (!Take(length) || length > m_bytes.size() / sizeof(std::uint16_t))
        {
            return false;
        }
        for (std::uint32_t i = 0; i < length; ++i)
        {
            std::uint16_t unit = 0;
            Take(unit);
            text += static_cast<wchar_t>(unit);
        }
        return true;
    }

    bool Take(List& list)
    {
        std::uint32_t count = 0;
        bool isGood = ++m_nDepth <= DeepestList && Take(count);
        for (std::uint32_t i = 0; isGood && i < count; ++i)
        {
            isGood = Take(list.emplace_back());
        }
        --m_nDepth;
        return isGood;
    }

    bool Take(Value& value)
    {
        std::uint8_t index = 0;
        return Take(index) &&
               TakeAlternative(value, index, std::make_index_sequence<std::variant_size_v<ValueAlternatives>>());
    }

private:
    template <std::size_t... Index>
    bool TakeAlternative(Value& value, std::size_t index, std::index_sequence<Index...>)
    {
        return ((index == Index && Take(value.emplace<Index>())) || ...);
    }

    std::string_view m_bytes;
    int m_nDepth = 0;
};

} // namespace

std::string FileBytes(const Values& values)
{
    Writer writer;
    writer.Put(Mark);
    writer.Put(static_cast<std::uint32_t>(values.size()));
    for (const auto& [key, list] : values)
    {
        writer.Put(key.type);
        writer.Put(key.subType);
        writer.Put(list);
    }
    writer.Put(CheckSum(writer.Bytes()));
    return std::move(writer.Bytes());
}

std::optional<Values> ParseFile(std::string_view bytes)
{
    if (!bytes.starts_with(Mark) || bytes.size() < Mark.size() + sizeof(std::uint64_t))
    {
        return std::nullopt;
    }
    const std::string_view checked = bytes.substr(0, bytes.size() - sizeof(std::uint64_t));
    std::uint64_t sum = 0;
    if (!Reader(bytes.substr(checked.size())).Take(sum) || sum != CheckSum(checked))
    {
        return std::nullopt;
    }
    Reader reader(checked.substr(Mark.size()));
    std::uint32_t count = 0;
    bool isGood = reader.Take(count);
    Values values;
    for (std::uint32_t i = 0; isGood && i < count; ++i)
    {
        ValueKey key{};
        isGood = reader.Take(key.type) && reader.Take(key.subType) && reader.Take(values[key]);
    }
    return isGood && reader.IsAtEnd() && values.size() == count ? std::optional(std::move(values)) : std::nullopt;
}

} // namespace Framework
