#pragma once

#include "common/VdDbg.h"

#include <cstdint>
#include <string>

namespace VdCommon
{

namespace Storage
{
struct Key;
}

// What an administrator sets about tracing.
struct DebugLogSettings
{
    bool enabled = false;
    std::uint32_t levelMask = 256; // errors
    DebugLogConfig config{};       // for the trace library
};

// Reads the settings of this process's kind of session below the key. False for a kind of key that does not exist.
// A setting that is missing or of the wrong form ends the reading: those before it stand, those after it keep the
// values above, and what the registry lacks gets no default.
bool ReadDebugLogSettings(const Storage::Key& key, const std::wstring& moduleName, DebugLogSettings& settings);

} // namespace VdCommon
