#include "tests/support/FaultPoints.h"

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <oleauto.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The functions of the system: kind, name, what a failing call returns, and its last error.
#define KESTRIX_FAULT_POINTS(POINT)                                                                                    \
    POINT(Allocation, malloc, 0, ERROR_NOT_ENOUGH_MEMORY)                                                              \
    POINT(Allocation, calloc, 0, ERROR_NOT_ENOUGH_MEMORY)                                                              \
    POINT(Allocation, realloc, 0, ERROR_NOT_ENOUGH_MEMORY)                                                             \
    POINT(Allocation, SysAllocString, 0, ERROR_NOT_ENOUGH_MEMORY)                                                      \
    POINT(Allocation, SysAllocStringLen, 0, ERROR_NOT_ENOUGH_MEMORY)                                                   \
    POINT(Allocation, SafeArrayCreate, 0, ERROR_NOT_ENOUGH_MEMORY)                                                     \
    POINT(Allocation, SafeArrayCopy, E_OUTOFMEMORY, ERROR_NOT_ENOUGH_MEMORY)                                           \
    POINT(File, CreateFileW, -1, ERROR_ACCESS_DENIED)                                                                  \
    POINT(File, ReadFile, FALSE, ERROR_READ_FAULT)                                                                     \
    POINT(File, WriteFile, FALSE, ERROR_DISK_FULL)                                                                     \
    POINT(File, FlushFileBuffers, FALSE, ERROR_WRITE_FAULT)                                                            \
    POINT(File, SetFilePointer, INVALID_SET_FILE_POINTER, ERROR_SEEK)                                                  \
    POINT(File, SetFilePointerEx, FALSE, ERROR_SEEK)                                                                   \
    POINT(File, SetEndOfFile, FALSE, ERROR_DISK_FULL)                                                                  \
    POINT(File, GetFileSizeEx, FALSE, ERROR_INVALID_HANDLE)                                                            \
    POINT(File, GetFileType, FILE_TYPE_UNKNOWN, ERROR_INVALID_HANDLE)                                                  \
    POINT(File, GetFileInformationByHandle, FALSE, ERROR_INVALID_HANDLE)                                               \
    POINT(File, GetFileAttributesW, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED)                                      \
    POINT(File, GetFileAttributesExW, FALSE, ERROR_ACCESS_DENIED)                                                      \
    POINT(File, GetFileSecurityW, FALSE, ERROR_ACCESS_DENIED)                                                          \
    POINT(File, LockFileEx, FALSE, ERROR_LOCK_VIOLATION)                                                               \
    POINT(File, CreateFileMappingW, 0, ERROR_NOT_ENOUGH_MEMORY)                                                        \
    POINT(File, MapViewOfFile, 0, ERROR_NOT_ENOUGH_MEMORY)                                                             \
    POINT(File, MoveFileW, FALSE, ERROR_ACCESS_DENIED)                                                                 \
    POINT(File, MoveFileExW, FALSE, ERROR_SHARING_VIOLATION)                                                           \
    POINT(File, ReplaceFileW, FALSE, ERROR_ACCESS_DENIED)                                                              \
    POINT(File, DeleteFileW, FALSE, ERROR_ACCESS_DENIED)                                                               \
    POINT(File, FindFirstFileW, -1, ERROR_ACCESS_DENIED)                                                               \
    POINT(File, FindNextFileW, FALSE, ERROR_NO_MORE_FILES)                                                             \
    POINT(File, LoadLibraryW, 0, ERROR_MOD_NOT_FOUND)                                                                  \
    POINT(File, LoadLibraryExW, 0, ERROR_MOD_NOT_FOUND)                                                                \
    POINT(File, _wfopen, 0, ERROR_ACCESS_DENIED)                                                                       \
    POINT(Registry, RegOpenKeyExW, ERROR_ACCESS_DENIED, 0)                                                             \
    POINT(Registry, RegCreateKeyExW, ERROR_ACCESS_DENIED, 0)                                                           \
    POINT(Registry, RegQueryValueExW, ERROR_ACCESS_DENIED, 0)                                                          \
    POINT(Registry, RegGetValueW, ERROR_ACCESS_DENIED, 0)                                                              \
    POINT(Registry, RegSetValueExW, ERROR_ACCESS_DENIED, 0)                                                            \
    POINT(Registry, RegSetKeyValueW, ERROR_ACCESS_DENIED, 0)                                                           \
    POINT(Gdi, BeginPaint, 0, ERROR_NOT_ENOUGH_MEMORY)                                                                 \
    POINT(Gdi, GetDC, 0, ERROR_NOT_ENOUGH_MEMORY)                                                                      \
    POINT(Gdi, GetDIBits, 0, ERROR_NOT_ENOUGH_MEMORY)                                                                  \
    POINT(Gdi, GetObjectW, 0, ERROR_INVALID_HANDLE)                                                                    \
    POINT(Gdi, SelectObject, 0, ERROR_INVALID_HANDLE)                                                                  \
    POINT(Gdi, LoadImageW, 0, ERROR_NOT_ENOUGH_MEMORY)                                                                 \
    POINT(Gdi, CreateMappedBitmap, 0, ERROR_NOT_ENOUGH_MEMORY)                                                         \
    POINT(Gdi, CreateCompatibleDC, 0, ERROR_NOT_ENOUGH_MEMORY)                                                         \
    POINT(Gdi, CreateCompatibleBitmap, 0, ERROR_NOT_ENOUGH_MEMORY)                                                     \
    POINT(Gdi, CreateDIBSection, 0, ERROR_NOT_ENOUGH_MEMORY)                                                           \
    POINT(Gdi, CreateSolidBrush, 0, ERROR_NOT_ENOUGH_MEMORY)                                                           \
    POINT(Gdi, CreatePatternBrush, 0, ERROR_NOT_ENOUGH_MEMORY)                                                         \
    POINT(Gdi, CreatePen, 0, ERROR_NOT_ENOUGH_MEMORY)                                                                  \
    POINT(Gdi, CreateFontIndirectW, 0, ERROR_NOT_ENOUGH_MEMORY)                                                        \
    POINT(Gdi, CreatePalette, 0, ERROR_NOT_ENOUGH_MEMORY)                                                              \
    POINT(Gdi, CreateRectRgn, 0, ERROR_NOT_ENOUGH_MEMORY)                                                              \
    POINT(Gdi, CreateRectRgnIndirect, 0, ERROR_NOT_ENOUGH_MEMORY)                                                      \
    POINT(Gdi, CreateRoundRectRgn, 0, ERROR_NOT_ENOUGH_MEMORY)                                                         \
    POINT(Gdi, ImageList_Create, 0, ERROR_NOT_ENOUGH_MEMORY)                                                           \
    POINT(Gdi, ImageList_AddMasked, -1, ERROR_NOT_ENOUGH_MEMORY)                                                       \
    POINT(Gdi, CreateWindowExW, 0, ERROR_NOT_ENOUGH_MEMORY)                                                            \
    POINT(Gdi, CreateDialogIndirectParamW, 0, ERROR_NOT_ENOUGH_MEMORY)                                                 \
    POINT(Com, CoInitialize, E_OUTOFMEMORY, 0)                                                                         \
    POINT(Com, OleInitialize, E_OUTOFMEMORY, 0)                                                                        \
    POINT(Com, CoRegisterMessageFilter, E_OUTOFMEMORY, 0)                                                              \
    POINT(Com, CoCreateInstance, REGDB_E_CLASSNOTREG, 0)                                                               \
    POINT(Com, SafeArrayPutElement, E_OUTOFMEMORY, 0)                                                                  \
    POINT(Com, SafeArrayGetElement, E_OUTOFMEMORY, 0)                                                                  \
    POINT(Com, SafeArrayGetVartype, E_INVALIDARG, 0)                                                                   \
    POINT(Com, SafeArrayAccessData, E_OUTOFMEMORY, 0)

// The functions of the SQLite library, which the linker replaces by these: name, parameters, arguments, what a failing
// call returns.
#define KESTRIX_SQLITE_POINTS(POINT)                                                                                   \
    POINT(sqlite3_open_v2, (const char* path, sqlite3** to, int flags, const char* vfs), (path, to, flags, vfs),       \
          SQLITE_CANTOPEN)                                                                                             \
    POINT(sqlite3_prepare_v2, (sqlite3 * of, const char* text, int size, sqlite3_stmt** to, const char** rest),        \
          (of, text, size, to, rest), SQLITE_NOMEM)                                                                    \
    POINT(sqlite3_exec,                                                                                                \
          (sqlite3 * of, const char* text, int (*row)(void*, int, char**, char**), void* to, char** why),              \
          (of, text, row, to, why), SQLITE_FULL)                                                                       \
    POINT(sqlite3_step, (sqlite3_stmt * of), (of), SQLITE_IOERR)                                                       \
    POINT(sqlite3_reset, (sqlite3_stmt * of), (of), SQLITE_NOMEM)                                                      \
    POINT(sqlite3_bind_int64, (sqlite3_stmt * of, int at, sqlite3_int64 value), (of, at, value), SQLITE_NOMEM)         \
    POINT(sqlite3_busy_timeout, (sqlite3 * of, int time), (of, time), SQLITE_NOMEM)

extern "C"
{
#define KESTRIX_DECLARE(kind, name, failure, error) extern decltype(&::name) __imp_##name;
    KESTRIX_FAULT_POINTS(KESTRIX_DECLARE)

#define KESTRIX_WRAP(name, parameters, arguments, failure)                                                             \
    int __real_##name parameters;                                                                                      \
    int __wrap_##name parameters                                                                                       \
    {                                                                                                                  \
        return FaultPoints::Fails(FaultKind::Sqlite) ? (failure) : __real_##name arguments;                            \
    }
    KESTRIX_SQLITE_POINTS(KESTRIX_WRAP)
}

namespace
{

template <FaultKind kind, auto& slot, long long failure, DWORD error, class Function>
class Point;

template <FaultKind kind, auto& slot, long long failure, DWORD error, class Result, class... Arguments>
class Point<kind, slot, failure, error, Result (*)(Arguments...)>
{
    static Result Call(Arguments... arguments)
    {
        if (!FaultPoints::Fails(kind))
        {
            return s_original(arguments...);
        }
        SetLastError(error);
        return (Result)failure; // a number or a handle
    }

    inline static const auto s_original = slot;
    const ImportPatch<Result (*)(Arguments...)> m_patch{slot, &Call};
};

} // namespace

struct FaultPoints::Points
{
#define KESTRIX_MEMBER(kind, name, failure, error)                                                                     \
    Point<FaultKind::kind, __imp_##name, failure, error, decltype(&::name)> m_##name;
    KESTRIX_FAULT_POINTS(KESTRIX_MEMBER)
};

FaultPoints::FaultPoints() : m_points(std::make_unique<Points>()) {}

FaultPoints::~FaultPoints()
{
    Disarm();
}

void FaultPoints::Arm(FaultKind kind, int number)
{
    s_nCalls = 0;
    s_nNumber = number;
    s_kind = kind;
}

int FaultPoints::Disarm()
{
    s_kind = FaultKind::None;
    return s_nCalls;
}
