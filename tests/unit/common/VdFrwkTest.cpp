// The places of the methods in the tables of the framework's interfaces, which callers of other languages count on.

#include "platform/dialog/ComPtr.h"
#include "platform/dialog/Ole.h"
#include "tests/support/ControllerDouble.h"
#include "tests/unit/common/RawTable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

class VdFrwkTest : public ::testing::Test
{
protected:
    VdFrwkTest()
    {
        AfxOleInit();
        m_double = std::make_unique<ControllerDouble>();
        m_controller.CoCreateInstance(CLSID_VdFrwkLocalController);
        m_double->m_calls.clear();
    }

    ~VdFrwkTest() override
    {
        m_controller.reset();
        m_double.reset();
        AfxOleTerm();
    }

    const std::vector<std::wstring>& Calls() const { return m_double->m_calls; }

    std::unique_ptr<ControllerDouble> m_double;
    CComPtr<IVdFrwkLocalController> m_controller;
    ULONG m_word = 0;
    ULONG m_result = 0;
    SAFEARRAY* m_array = nullptr;
};

} // namespace

TEST_F(VdFrwkTest, DoCommandIsTheFourthMethodOfTheController)
{
    EXPECT_EQ(CallSlot(m_controller.get(), 3, 22UL, 1UL, 0UL, 0UL, &m_word, &m_result, m_array), S_OK);
    EXPECT_EQ(Calls(), std::vector<std::wstring>{L"DoCommand 22 1 0 0 0 of 0"});
}

TEST_F(VdFrwkTest, GetActiveProfileIsTheEleventhAndItsQueryValueTheFourthAndSetValueTheFifth)
{
    CComPtr<IVdFrwkProfile> profile;
    EXPECT_EQ(CallSlot(m_controller.get(), 10, static_cast<IVdFrwkProfile**>(profile.put())), S_OK);
    ASSERT_TRUE(profile);
    EXPECT_EQ(CallSlot(profile.get(), 3, 112UL, 1UL, 0UL, 0UL, &m_word, &m_array), S_OK);
    EXPECT_EQ(CallSlot(profile.get(), 4, 113UL, 2UL, 0UL, 0UL, &m_word, &m_result, m_array), S_OK);
    EXPECT_EQ(Calls(), (std::vector<std::wstring>{L"GetActiveProfile", L"QueryValue 112 1 0 0 0 of 0",
                                                  L"SetValue 113 2 0 0 0 of 0"}));
}

TEST_F(VdFrwkTest, GetPropertyIsTheFourteenth)
{
    CComPtr<IVdFrwkProperty> property;
    CallSlot(m_controller.get(), 13, static_cast<IVdFrwkProperty**>(property.put()));
    EXPECT_EQ(Calls(), std::vector<std::wstring>{L"GetProperty"});
}
