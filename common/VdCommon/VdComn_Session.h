#pragma once

namespace VdCommon
{

// Whether this process runs in the session of the system's services. A failure of the question, and a platform before
// Windows 2000, mean that it does not.
bool IsServiceSession() noexcept;

} // namespace VdCommon
