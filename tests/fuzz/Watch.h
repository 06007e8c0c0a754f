#pragma once

#include "tests/fuzz/Harness.h"

#include "suite/common/KernelHandle.h"
#include "tests/support/CrashWatch.h"

#include <filesystem>

namespace Fuzz
{

// Watches the input that is read: when the program crashes at it, or reads longer than any input may take, that is
// told, the bare input is kept in a file, and the program ends with status 3. The next watch over the harness leaves
// the input in the build folder as others. One at a time.
class Watch
{
public:
    explicit Watch(const Harness& harness);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Before an input is read. It must stay as it is until the next call.
    void Begin(std::string_view input);

private:
    void Tell(const char* what) const;
    void TakeLastCrash() const;

    const Harness& m_harness;
    const std::filesystem::path m_crashPath; // of the bare bytes
    Suite::KernelHandle m_crashFile;
    std::string_view m_input{};
    CrashWatch m_watch{[this](const char* what) { Tell(what); }};
};

} // namespace Fuzz
