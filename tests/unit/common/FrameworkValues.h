#pragma once

#include "tests/support/TraceRecorder.h"
#include "tests/unit/common/ComMemoryWatch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using Traces = std::vector<std::wstring>;

inline const Traces NoTraces;

// Records what is traced, and fails a test that leaves a block of an array or a text behind.
class FrameworkValues : public ::testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(m_memory.BlocksOut(), 0); }

    // The failures traced since the last time.
    Traces Errors()
    {
        Traces errors = m_traces.Errors();
        m_traces.Clear();
        return errors;
    }

private:
    TraceRecorder m_traces;

protected:
    ComMemoryWatch m_memory;
};
