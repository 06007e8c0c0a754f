#pragma once

#include <windows.h>

namespace VdDbg
{

// A file locked against all its other handles, in this process and others, until the object or the process goes. The
// handle needs FILE_READ_DATA, must not be overlapped, and must stay open meanwhile. The constructor waits its turn.
class FileLock
{
public:
    explicit FileLock(HANDLE file) : m_file(file)
    {
        OVERLAPPED place = Place();
        m_nError = LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) ? ERROR_SUCCESS : GetLastError();
    }

    ~FileLock()
    {
        OVERLAPPED place = Place();
        if (m_nError == ERROR_SUCCESS)
        {
            UnlockFileEx(m_file, 0, 1, 0, &place);
        }
    }

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    // A system error code; the file is locked when it is 0.
    DWORD Error() const { return m_nError; }

private:
    // One byte far beyond the end of any log, so that those who read the file never meet the lock.
    static OVERLAPPED Place()
    {
        OVERLAPPED place{};
        place.OffsetHigh = 0x40000000;
        return place;
    }

    HANDLE m_file;
    DWORD m_nError;
};

} // namespace VdDbg
