// What the program takes from its language file: texts, templates, bitmaps, a cursor, and what the file says of its
// language.

#include "common/VdCommon/VdComn_MuiLibrary.h"
#include "framework/ui/kestrix/controls/BitmapResource.h"
#include "platform/dialog/DialogTemplate.h"
#include "platform/dialog/IconResource.h"
#include "platform/dialog/ModuleState.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"
#include "tests/fuzz/GuardedBlock.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/OneResource.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/controls/BitmapFile.h"

#include <cstring>
#include <filesystem>

using namespace Fuzz;

namespace
{

constexpr wchar_t BuiltFile[] = L"resource\\en-US\\Kestrix.exe.mui";
constexpr UINT TextsInBlock = 16;

// The texts of a block up to the first that does not lie in it whole.
std::vector<std::wstring> PlainTexts(std::string_view bytes)
{
    std::vector<std::wstring> texts;
    std::wstring units(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * sizeof(wchar_t));
    for (std::size_t place = 0; texts.size() < TextsInBlock && place + units[place] < units.size();
         place += 1 + units[place])
    {
        texts.push_back(units.substr(place + 1, units[place]));
    }
    texts.resize(TextsInBlock);
    return texts;
}

// What lies in the language file under this number and type.
std::string_view BytesOf(UINT id, const wchar_t* type)
{
    const std::span<const std::byte> bytes = GetResourceBytes(id, type);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The same with a letter in front that says what it is.
std::string Sample(char sort, UINT id, const wchar_t* type)
{
    return sort + std::string(BytesOf(id, type));
}

// The built file as the program's language file, in memory that ends at a page that cannot be touched and in which the
// cursor can become another. The system itself looks for the parts of a cursor, so that OneResource does not reach it.
class LanguageInMemory
{
public:
    LanguageInMemory()
    {
        std::string file = ReadBytes(BuiltFile);
        file.resize((file.size() + 15) / 16 * 16);
        // The lowest bit says that the file lies there as it does on the disk.
        AfxSetResourceHandle(reinterpret_cast<HMODULE>(const_cast<char*>(m_block.Put(file).data()) + 1));
        m_group = BytesOf(IDC_HAND_CURSOR, RT_GROUP_CURSOR);
        WORD image = 0; // its number is the last word of a group of one
        std::memcpy(&image, m_group.data() + m_group.size() - sizeof image, sizeof image);
        m_image = BytesOf(image, RT_CURSOR);
        Expect(bool(LoadCursorImage(IDC_HAND_CURSOR)), "the built file has no cursor");
    }

    ~LanguageInMemory() { AfxSetResourceHandle(nullptr); }

    std::string Cursor() const { return std::string(m_group) + std::string(m_image); }

    // Its group and its image become these bytes, as far as there is room, and zeros after them.
    void SetCursor(std::string bytes)
    {
        bytes.resize(m_group.size() + m_image.size());
        bytes.copy(const_cast<char*>(m_group.data()), m_group.size());
        bytes.copy(const_cast<char*>(m_image.data()), m_image.size(), m_group.size());
    }

private:
    GuardedBlock m_block;
    std::string_view m_group;
    std::string_view m_image;
};

// The bytes that a bitmap has by what its header says, which is there.
std::uint64_t PlainSize(std::string_view input)
{
    BITMAPINFOHEADER info{};
    std::memcpy(&info, input.data(), sizeof info);
    const std::uint64_t table = info.biClrUsed != 0 ? info.biClrUsed : info.biBitCount <= 8 ? 1U << info.biBitCount : 0;
    const std::uint64_t masks = info.biCompression == BI_BITFIELDS && info.biSize == sizeof info ? 3 : 0;
    const std::uint64_t row = (static_cast<std::uint64_t>(info.biWidth) * info.biBitCount + 31) / 32;
    return info.biSize + sizeof(DWORD) * (table + masks + row * static_cast<std::uint64_t>(info.biHeight));
}

class LanguageReader : public Reader
{
public:
    LanguageReader()
    {
        std::filesystem::copy_file(BuiltFile, m_file);
        std::filesystem::copy_file(BuiltFile, m_file + L".mui"); // which speaks for the other
    }

private:
    std::vector<std::wstring> Samples() const override
    {
        VdCommon::Library::MuiConfiguration configuration{};
        configuration.signature = VdCommon::Library::MuiConfiguration::Signature;
        return UnitsOf(
            {Sample('0', 1 + IDS_COLUMN_TIME / TextsInBlock, RT_STRING),
             Sample('0', 1 + IDS_OUT_OF_MEMORY / TextsInBlock, RT_STRING), Sample('1', IDD_LOG_FORM, RT_DIALOG),
             Sample('1', IDD_DELETE, RT_DIALOG), Sample('2', IDB_LOG_ICONS, RT_BITMAP),
             "2" + BitmapFile(4, 4, 32).ResourceBytes(), // the smallest form: a change often comes to its end
             "4" + m_language.Cursor(),
             "3" + std::string(reinterpret_cast<const char*>(&configuration), sizeof configuration)});
    }

    std::size_t Read(std::string_view input) override
    {
        if (input.empty())
        {
            return 0;
        }
        const std::size_t sort = input.front() & 7;
        input.remove_prefix(1);
        const std::size_t outcome = sort == 0   ? ReadTexts(input)
                                    : sort == 1 ? ReadTemplate(input)
                                    : sort == 2 ? ReadBitmap(input)
                                    : sort == 3 ? ReadConfiguration(input)
                                                : ReadCursor(input);
        return outcome == 0 ? 0 : 1000 * sort + outcome;
    }

    static std::size_t ReadTexts(std::string_view input)
    {
        AfxSetResourceHandle(AfxGetResourceHandle()); // forgets the texts of the input before
        const OneResource resource(input);
        const std::vector<std::wstring> expected = PlainTexts(input);
        std::size_t outcome = 0;
        for (UINT id = 0; id < TextsInBlock; ++id)
        {
            ExpectSame(LoadText(id), expected[id], "text " + std::to_string(id));
            LoadNumber(id, 24);
            outcome += !expected[id].empty();
        }
        AfxSetResourceHandle(AfxGetResourceHandle());
        return outcome;
    }

    static std::size_t ReadTemplate(std::string_view input)
    {
        const OneResource resource(input);
        DialogTemplate dialog(1);
        if (!dialog.IsLoaded())
        {
            return 0;
        }
        dialog.RemoveVisibleStyle();
        return 1 + MakeDialog(dialog, input.size());
    }

    // Whether the system makes a dialog of the template, of which nothing stands after the last whole word.
    static std::size_t MakeDialog(const DialogTemplate& dialog, std::size_t size)
    {
        GuardedBlock block;
        const std::size_t whole = (size + sizeof(DWORD) - 1) / sizeof(DWORD) * sizeof(DWORD);
        const std::string_view bytes = block.Put({reinterpret_cast<const char*>(dialog.Get()), whole});
        const HWND window = CreateDialogIndirectParamW(
            AfxGetInstanceHandle(), reinterpret_cast<const DLGTEMPLATE*>(bytes.data()), HWND_MESSAGE,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        return window != nullptr && DestroyWindow(window);
    }

    static std::size_t ReadBitmap(std::string_view input)
    {
        const OneResource resource(input);
        const BitmapResource bitmap(1U);
        Expect(bitmap.IsEmpty() || PlainSize(input) <= input.size(), "a bitmap that goes beyond its end");
        const SIZE size = bitmap.GetSize();
        const CMemoryDC dc;
        bitmap.Draw(dc, {0, 0, 16, 16}, {0, 0, size.cx, size.cy});
        return bitmap.IsEmpty() ? 0 : 1 + static_cast<std::size_t>(size.cx > 16) + 2 * (size.cy > 16);
    }

    std::size_t ReadConfiguration(std::string_view input) const
    {
        const OneResource resource(input);
        const HMODULE module = VdCommon::Library::LoadMUILibrary(m_file.c_str(), MUI_LANGUAGE_NAME, 0);
        return module != nullptr && VdCommon::Library::FreeMUILibrary(module);
    }

    std::size_t ReadCursor(std::string_view input)
    {
        m_language.SetCursor(std::string(input));
        const UniqueCursor cursor = LoadCursorImage(IDC_HAND_CURSOR);
        ICONINFO info{};
        if (!cursor || !GetIconInfo(cursor.get(), &info))
        {
            return cursor ? 1 : 0;
        }
        const UniqueBitmap mask(info.hbmMask);
        const UniqueBitmap colour(info.hbmColor);
        return 2 + static_cast<std::size_t>(colour.get() != nullptr) + 2 * (info.xHotspot > 0) +
               4 * (info.yHotspot > 0);
    }

    LanguageInMemory m_language;
    const TemporaryFolder m_folder;
    const std::wstring m_file = m_folder.File(L"file");
};

const Registration<LanguageReader> Language({.name = "language",
                                             .reads = "texts, templates, bitmaps and a cursor of the language file",
                                             .form = Form::Bytes,
                                             .inputs = 4'000});

} // namespace
