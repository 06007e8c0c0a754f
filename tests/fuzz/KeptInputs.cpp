#include "tests/fuzz/KeptInputs.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/VisibleText.h"

#include <algorithm>

namespace Fuzz
{

namespace
{

namespace fs = std::filesystem;

constexpr char Digits[] = "0123456789abcdef";
constexpr std::size_t BytesInLine = 32;

std::string ToHex(std::string_view bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text += {Digits[byte >> 4], Digits[byte & 15]};
        text += (i + 1) % BytesInLine == 0 || i + 1 == bytes.size() ? "\n" : "";
    }
    return text;
}

std::string FromHex(std::string_view text)
{
    std::string bytes;
    for (const std::string& line : Pieces(text, '\n'))
    {
        for (std::size_t i = 0; i + 1 < line.size(); i += 2)
        {
            bytes += static_cast<char>(std::stoi(line.substr(i, 2), nullptr, 16));
        }
    }
    return bytes;
}

std::string ToLines(std::string_view input)
{
    std::wstring_view text(reinterpret_cast<const wchar_t*>(input.data()), input.size() / sizeof(wchar_t));
    std::string lines;
    for (const std::wstring& line : Pieces(text, L'\n'))
    {
        lines += Visible(line) + "\n";
    }
    return lines;
}

std::string FromLines(std::string_view lines)
{
    std::wstring text;
    for (const std::string& line : Pieces(lines, '\n'))
    {
        text += FromVisible(line) + L"\n";
    }
    return Utf16Bytes(std::wstring_view(text).substr(0, text.size() - 2)); // the last line ends as well
}

} // namespace

std::vector<KeptInput> KeptInputs(const Harness& harness)
{
    std::vector<KeptInput> inputs;
    const fs::path folder = fs::path(KESTRIX_FUZZ_KEPT) / harness.name;
    std::error_code none; // most harnesses have no folder
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, none))
    {
        const std::string content = ReadBytes(entry.path().wstring());
        inputs.push_back(
            {entry.path().stem().string(), harness.form == Form::Utf16 ? FromLines(content) : FromHex(content)});
    }
    std::ranges::sort(inputs, {}, &KeptInput::name);
    return inputs;
}

std::filesystem::path FindingsFolder()
{
    fs::create_directories(KESTRIX_FUZZ_FINDINGS);
    return KESTRIX_FUZZ_FINDINGS;
}

std::filesystem::path LeaveInput(const Harness& harness, std::string_view input)
{
    const bool isText = harness.form == Form::Utf16;
    const std::string number = std::to_string(std::hash<std::string_view>()(input) % 1'000'000);
    const fs::path path = FindingsFolder() / (std::string(harness.name) + "-" + number + (isText ? ".txt" : ".hex"));
    WriteBytes(path.wstring(), isText ? ToLines(input) : ToHex(input));
    return path;
}

} // namespace Fuzz
