#include "tests/support/FaultPoints.h"

#include "tests/support/ImportPatch.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <oleauto.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <tuple>
#include <type_traits>

// The functions of the system. A row has the kind, what a failing call returns, its last error, and the names of those
// for which that holds.
#define KESTRIX_FAULT_POINTS(ROW, NAME)                                                                                \
    ROW(Allocation, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(malloc) NAME(calloc) NAME(realloc))                               \
    ROW(Allocation, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(SysAllocString) NAME(SysAllocStringLen) NAME(SafeArrayCreate))    \
    ROW(Allocation, E_OUTOFMEMORY, ERROR_NOT_ENOUGH_MEMORY, NAME(SafeArrayCopy))                                       \
    ROW(File, -1, ERROR_ACCESS_DENIED, NAME(CreateFileW) NAME(FindFirstFileW))                                         \
    ROW(File, 0, ERROR_ACCESS_DENIED, NAME(_wfopen) NAME(MoveFileW) NAME(ReplaceFileW) NAME(DeleteFileW))              \
    ROW(File, 0, ERROR_ACCESS_DENIED, NAME(GetFileAttributesExW) NAME(GetFileSecurityW))                               \
    ROW(File, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED, NAME(GetFileAttributesW))                                  \
    ROW(File, 0, ERROR_INVALID_HANDLE, NAME(GetFileSizeEx) NAME(GetFileType) NAME(GetFileInformationByHandle))         \
    ROW(File, 0, ERROR_NO_MORE_FILES, NAME(FindNextFileW))                                                             \
    ROW(File, 0, ERROR_READ_FAULT, NAME(ReadFile))                                                                     \
    ROW(File, 0, ERROR_WRITE_FAULT, NAME(FlushFileBuffers))                                                            \
    ROW(File, 0, ERROR_DISK_FULL, NAME(WriteFile) NAME(SetEndOfFile))                                                  \
    ROW(File, 0, ERROR_SEEK, NAME(SetFilePointerEx))                                                                   \
    ROW(File, INVALID_SET_FILE_POINTER, ERROR_SEEK, NAME(SetFilePointer))                                              \
    ROW(File, 0, ERROR_LOCK_VIOLATION, NAME(LockFileEx))                                                               \
    ROW(File, 0, ERROR_SHARING_VIOLATION, NAME(MoveFileExW))                                                           \
    ROW(File, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(CreateFileMappingW) NAME(MapViewOfFile))                                \
    ROW(File, 0, ERROR_MOD_NOT_FOUND, NAME(LoadLibraryW) NAME(LoadLibraryExW))                                         \
    ROW(Registry, ERROR_ACCESS_DENIED, 0, NAME(RegOpenKeyExW) NAME(RegCreateKeyExW) NAME(RegQueryValueExW))            \
    ROW(Registry, ERROR_ACCESS_DENIED, 0, NAME(RegGetValueW) NAME(RegSetValueExW) NAME(RegSetKeyValueW))               \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY,                                                                               \
        NAME(BeginPaint) NAME(GetDC) NAME(CreateCompatibleDC) NAME(CreateFontIndirectW))                               \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY,                                                                               \
        NAME(CreateSolidBrush) NAME(CreatePatternBrush) NAME(CreatePen) NAME(CreatePalette))                           \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(CreateCompatibleBitmap) NAME(CreateMappedBitmap) NAME(CreateDIBSection)) \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(CreateRectRgn) NAME(CreateRectRgnIndirect) NAME(CreateRoundRectRgn))     \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(CreateWindowExW) NAME(CreateDialogIndirectParamW))                       \
    ROW(Gdi, 0, ERROR_NOT_ENOUGH_MEMORY, NAME(LoadImageW) NAME(GetDIBits) NAME(ImageList_Create))                      \
    ROW(Gdi, -1, ERROR_NOT_ENOUGH_MEMORY, NAME(ImageList_AddMasked))                                                   \
    ROW(Gdi, 0, ERROR_INVALID_HANDLE, NAME(GetObjectW) NAME(SelectObject))                                             \
    ROW(Com, E_OUTOFMEMORY, 0, NAME(CoInitialize) NAME(OleInitialize) NAME(CoRegisterMessageFilter))                   \
    ROW(Com, E_OUTOFMEMORY, 0, NAME(SafeArrayPutElement) NAME(SafeArrayGetElement) NAME(SafeArrayAccessData))          \
    ROW(Com, E_INVALIDARG, 0, NAME(SafeArrayGetVartype))                                                               \
    ROW(Com, REGDB_E_CLASSNOTREG, 0, NAME(CoCreateInstance))

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
#define KESTRIX_NAMES(kind, failure, error, names) names
#define KESTRIX_DECLARE(name) extern decltype(&::name) __imp_##name;
    KESTRIX_FAULT_POINTS(KESTRIX_NAMES, KESTRIX_DECLARE)

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

template <FaultKind kind, long long failure, DWORD error, auto& slot, class = std::remove_cvref_t<decltype(slot)>>
class Point;

template <FaultKind kind, long long failure, DWORD error, auto& slot, class Result, class... Arguments>
class Point<kind, failure, error, slot, Result (*)(Arguments...)>
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

template <FaultKind kind, long long failure, DWORD error, auto&... slots>
using Points = std::tuple<Point<kind, failure, error, slots>...>;

} // namespace

FaultPoints::FaultPoints()
{
#define KESTRIX_PATCH(kind, failure, error, names)                                                                     \
    m_points.push_back(std::make_shared<Points<FaultKind::kind, failure, error names>>());
#define KESTRIX_SLOT(name) , __imp_##name
    KESTRIX_FAULT_POINTS(KESTRIX_PATCH, KESTRIX_SLOT)
}
