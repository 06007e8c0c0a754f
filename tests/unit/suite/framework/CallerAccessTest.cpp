#include "suite/framework/CallerAccess.h"

#include "suite/common/KernelHandle.h"

#include <gtest/gtest.h>

#include <sddl.h>

#include <string>
#include <vector>

using Framework::CallerAccess;

namespace
{

constexpr DWORD LocalCalls = 3; // what COM calls execute and execute local

std::wstring TextOf(PSID sid)
{
    wchar_t* made = nullptr;
    EXPECT_TRUE(ConvertSidToStringSidW(sid, &made));
    const std::wstring text = made != nullptr ? made : L"";
    LocalFree(made);
    return text;
}

std::wstring OwnUser()
{
    HANDLE opened = nullptr;
    EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened));
    const Suite::KernelHandle token(opened);
    BYTE user[256] = {};
    DWORD size = sizeof user;
    EXPECT_TRUE(GetTokenInformation(token.get(), TokenUser, user, size, &size));
    return TextOf(reinterpret_cast<TOKEN_USER*>(user)->User.Sid);
}

PACL ListOf(CallerAccess& access)
{
    BOOL isPresent = FALSE;
    BOOL isDefault = TRUE;
    PACL list = nullptr;
    EXPECT_TRUE(GetSecurityDescriptorDacl(access.Descriptor(), &isPresent, &list, &isDefault));
    EXPECT_TRUE(isPresent);
    EXPECT_FALSE(isDefault);
    return list;
}

} // namespace

TEST(CallerAccessTest, ItsOwnUserTheInteractiveUserAndTheSystemMayCallAndNobodyElse)
{
    CallerAccess access;
    const PACL list = ListOf(access);
    ASSERT_NE(list, nullptr);
    std::vector<std::wstring> callers;
    for (DWORD i = 0; i < list->AceCount; ++i)
    {
        void* entry = nullptr;
        ASSERT_TRUE(GetAce(list, i, &entry));
        auto* const allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        EXPECT_EQ(allowed->Header.AceType, ACCESS_ALLOWED_ACE_TYPE);
        EXPECT_EQ(allowed->Header.AceFlags, 0);
        EXPECT_EQ(allowed->Mask, LocalCalls);
        callers.push_back(TextOf(&allowed->SidStart));
    }
    EXPECT_EQ(callers, (std::vector<std::wstring>{OwnUser(), L"S-1-5-4", L"S-1-5-18"}));
}

TEST(CallerAccessTest, TheDescriptorHasTheFormThatComTakes)
{
    CallerAccess access;
    EXPECT_TRUE(IsValidSecurityDescriptor(access.Descriptor()));
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    ASSERT_TRUE(GetSecurityDescriptorControl(access.Descriptor(), &control, &revision));
    EXPECT_FALSE(control & SE_SELF_RELATIVE);
    EXPECT_FALSE(control & SE_SACL_PRESENT);
    PSID sid = nullptr;
    BOOL isDefault = FALSE;
    ASSERT_TRUE(GetSecurityDescriptorOwner(access.Descriptor(), &sid, &isDefault));
    EXPECT_EQ(TextOf(sid), OwnUser());
    ASSERT_TRUE(GetSecurityDescriptorGroup(access.Descriptor(), &sid, &isDefault));
    EXPECT_EQ(TextOf(sid), OwnUser());
}
