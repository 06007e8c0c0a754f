#include "tests/unit/common/VdCommon/AccessList.h"

#include <gtest/gtest.h>

#include <sddl.h>

#include <ostream>

std::ostream& operator<<(std::ostream& out, const AccessEntry& entry)
{
    return out << entry.account << ' ' << std::hex << entry.mask << " type " << entry.type << " flags " << entry.flags;
}

std::vector<AccessEntry> AccessListOf(PSECURITY_DESCRIPTOR descriptor)
{
    std::vector<AccessEntry> entries;
    BOOL present = FALSE;
    BOOL defaulted = TRUE;
    ACL* list = nullptr;
    EXPECT_TRUE(::GetSecurityDescriptorDacl(descriptor, &present, &list, &defaulted));
    EXPECT_TRUE(present);
    EXPECT_FALSE(defaulted);
    if (list == nullptr)
    {
        ADD_FAILURE() << "no access list";
        return entries;
    }
    for (DWORD index = 0; index < list->AceCount; ++index)
    {
        void* found = nullptr;
        char* sid = nullptr;
        EXPECT_TRUE(::GetAce(list, index, &found));
        auto* const ace = static_cast<ACCESS_ALLOWED_ACE*>(found);
        EXPECT_TRUE(::ConvertSidToStringSidA(&ace->SidStart, &sid));
        entries.push_back({sid, ace->Mask, ace->Header.AceType, ace->Header.AceFlags});
        ::LocalFree(sid);
    }
    return entries;
}

std::vector<AccessEntry> AccessListOfObject(HANDLE object)
{
    DWORD size = 0;
    ::GetKernelObjectSecurity(object, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> descriptor(size);
    EXPECT_TRUE(::GetKernelObjectSecurity(object, DACL_SECURITY_INFORMATION, descriptor.data(), size, &size));
    return AccessListOf(descriptor.data());
}
