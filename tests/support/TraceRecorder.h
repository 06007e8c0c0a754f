#pragma once

#include "common/VdCommon/VdComn_DebugLog.h"
#include "platform/dialog/UniqueHandle.h"

#include <string>
#include <vector>

struct TraceCalls;

// What the process traces while this object lives, all levels, in the order of the calls. One at a time.
class TraceRecorder
{
public:
    TraceRecorder();
    ~TraceRecorder();
    TraceRecorder(const TraceRecorder&) = delete;
    TraceRecorder& operator=(const TraceRecorder&) = delete;

    // The texts of one level, without time, identity and place.
    std::vector<std::wstring> Texts(VdCommon::TraceLevel level) const;

    // The texts of all levels.
    std::vector<std::wstring> Texts() const;

    std::vector<std::wstring> Errors() const { return Texts(VdCommon::TraceLevel::Error); }

    // Forgets what was traced until now.
    void Clear();

private:
    std::vector<std::wstring> TextsWithTag(const std::wstring& tag) const;

    UniqueModule m_module; // keeps the lines
    TraceCalls* m_calls = nullptr;
};
