#include "platform/dialog/DialogTemplate.h"

#include "platform/dialog/ModuleState.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/OneResource.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

// The templates of the program by their numbers.
std::vector<std::pair<UINT, std::string>> BuiltTemplates()
{
    const LanguageFile language;
    std::vector<std::pair<UINT, std::string>> templates;
    for (UINT id = 1; id < 300; ++id)
    {
        const std::span<const std::byte> bytes = GetResourceBytes(id, RT_DIALOG);
        if (!bytes.empty())
        {
            templates.emplace_back(id, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
        }
    }
    return templates;
}

bool Loads(std::string_view bytes)
{
    const OneResource resource(bytes);
    return DialogTemplate(1).IsLoaded();
}

// A template of the plain form: style, extended style, one control, place, no menu, no class, title, font; and the
// control, a static text with two bytes of data.
std::string PlainTemplate()
{
    constexpr WORD words[] = {DS_SETFONT, 0, 0, 0, 1, 0, 0, 9, 9, 0,      0,    L't', 0, 8, L'f',  0,
                              0,          0, 0, 0, 0, 0, 9, 9, 5, 0xFFFF, 0x82, L'x', 0, 2, 0xABCD};
    return {reinterpret_cast<const char*>(words), sizeof words};
}

} // namespace

TEST(DialogTemplateTest, TheTemplatesOfTheProgramLoad)
{
    EXPECT_EQ(BuiltTemplates().size(), 5u);
    for (const auto& [id, bytes] : BuiltTemplates())
    {
        EXPECT_TRUE(Loads(bytes)) << id;
    }
}

TEST(DialogTemplateTest, ATemplateOfThePlainFormIsReadToItsEnd)
{
    const std::string whole = PlainTemplate();
    EXPECT_TRUE(Loads(whole));
    EXPECT_TRUE(Loads(whole + "more"));
    for (std::size_t length = 0; length < whole.size(); ++length)
    {
        EXPECT_FALSE(Loads(std::string_view(whole).substr(0, length))) << length;
    }
}

// The system reads as far as a template says, and a template of four bytes ended the program before that.
TEST(DialogTemplateTest, ATemplateThatEndsAnywhereIsNone)
{
    for (const auto& [id, bytes] : BuiltTemplates())
    {
        for (std::size_t length = 0; length < bytes.size(); ++length)
        {
            EXPECT_FALSE(Loads(std::string_view(bytes).substr(0, length))) << id << " of " << length << " bytes";
        }
    }
}
