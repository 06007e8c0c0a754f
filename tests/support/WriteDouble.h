#pragma once

#include "tests/support/ImportPatch.h"

#include <algorithm>
#include <functional>
#include <utility>

extern "C" decltype(&::WriteFile) __imp_WriteFile;

// Stands for WriteFile in this program, for the life of the object; one at a time. The answer decides what becomes of a
// write, of which none is overlapped.
class WriteDouble
{
public:
    using Answer = std::function<BOOL(HANDLE file, const void* bytes, DWORD size, DWORD* written)>;

    explicit WriteDouble(Answer answer) : m_answer(std::move(answer)), m_patch(__imp_WriteFile, &Write)
    {
        s_current = this;
    }

    ~WriteDouble() { s_current = nullptr; }

    WriteDouble(const WriteDouble&) = delete;
    WriteDouble& operator=(const WriteDouble&) = delete;

    // The system's own, for the answer.
    static BOOL PassOn(HANDLE file, const void* bytes, DWORD size, DWORD* written)
    {
        return s_current->m_patch.Original()(file, bytes, size, written, nullptr);
    }

private:
    static BOOL WINAPI Write(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED*)
    {
        return s_current->m_answer(file, bytes, size, written);
    }

    inline static WriteDouble* s_current = nullptr;

    const Answer m_answer;
    ImportPatch<decltype(&::WriteFile)> m_patch;
};

// A disk with room for so many bytes, of all files that are written meanwhile.
class FullDisk
{
public:
    explicit FullDisk(DWORD room = 0) : m_nRoom(room) {}

    DWORD Room() const { return m_nRoom; }

private:
    BOOL Take(HANDLE file, const void* bytes, DWORD size, DWORD* written)
    {
        const DWORD part = std::min(size, m_nRoom);
        m_nRoom -= part;
        WriteDouble::PassOn(file, bytes, part, written);
        SetLastError(ERROR_DISK_FULL);
        return part == size;
    }

    DWORD m_nRoom;
    const WriteDouble m_write{std::bind_front(&FullDisk::Take, this)};
};

// Each write takes half of its bytes, and says so.
class HalfWrites
{
    const WriteDouble m_write{[](HANDLE file, const void* bytes, DWORD size, DWORD* written)
                              { return WriteDouble::PassOn(file, bytes, size / 2, written); }};
};
