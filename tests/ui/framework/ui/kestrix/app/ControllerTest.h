#pragma once

#include "platform/dialog/Ole.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// A service framework of the test.
class ControllerTest : public ::testing::Test
{
protected:
    using Texts = std::vector<std::wstring>;
    using Step = ControllerDouble::Step;

    static constexpr auto Refused = static_cast<HRESULT>(0x80040201);

    ~ControllerTest() override { EXPECT_EQ(m_controller.References(), 0); }

    struct Apartment
    {
        Apartment() { AfxOleInit(); }

        ~Apartment() { AfxOleTerm(); }
    };

    const Apartment m_apartment;
    ControllerDouble m_controller;
    const TraceRecorder m_trace;
};
