#pragma once

#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"
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

    const OleApartment m_apartment;
    ControllerDouble m_controller;
    TraceRecorder m_trace;
};
