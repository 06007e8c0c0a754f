// The built library, as its users load it.

#include "tests/support/DebuggerOutput.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace
{

struct LibraryFreer
{
    void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
};

using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer>;

Library Load()
{
    return Library(LoadLibraryA(".\\" TRACE_LIBRARY));
}

template <class Function>
Function* Find(const Library& library, const char* name)
{
    const FARPROC found = GetProcAddress(library.get(), name);
    EXPECT_NE(found, nullptr) << name;
    Function* function = nullptr;
    std::memcpy(&function, &found, sizeof function);
    return function;
}

class VdDbgExports : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_library) << "error " << GetLastError(); }

    DebugLogConfig Config() const
    {
        return ConfigOf(
            {.folder = m_folder.File(L"a\\b"), .prefix = L"zpt", .file = L"", .extension = L"", .module = L"Kestrix"});
    }

    void* Open(const DebugLogConfig& config)
    {
        void* handle = nullptr;
        EXPECT_EQ(m_initialize(&handle, &config), 0U);
        EXPECT_NE(handle, nullptr);
        return handle;
    }

    std::wstring Path() const { return m_folder.File(L"a\\b\\zptKestrix.log"); }

    const TemporaryFolder m_folder;
    const SYSTEMTIME m_time = Noon();
    Library m_library = Load();
    VdDbgInitializeFunction* m_initialize = Find<VdDbgInitializeFunction>(m_library, "VdDbgInitialize");
    VdDbgUninitializeFunction* m_uninitialize = Find<VdDbgUninitializeFunction>(m_library, "VdDbgUninitialize");
    VdDbgTraceFunction* m_trace = Find<VdDbgTraceFunction>(m_library, "VdDbgTrace");
};

// What the image itself says.
std::vector<std::string> NamesExportedBy(const Library& library)
{
    const auto* const image = reinterpret_cast<const std::uint8_t*>(library.get());
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* const exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(image + place.VirtualAddress);
    EXPECT_EQ(exports->NumberOfFunctions, exports->NumberOfNames) << "something is exported by number alone";
    const auto* const names = reinterpret_cast<const DWORD*>(image + exports->AddressOfNames);
    std::vector<std::string> found;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
    {
        found.emplace_back(reinterpret_cast<const char*>(image + names[i]));
    }
    return found;
}

} // namespace

TEST_F(VdDbgExports, AreThreeFunctionsAndNothingElse)
{
    EXPECT_EQ(NamesExportedBy(m_library),
              (std::vector<std::string>{"VdDbgInitialize", "VdDbgTrace", "VdDbgUninitialize"}));
}

TEST_F(VdDbgExports, WriteLinesToTheFileThatTheSettingsName)
{
    void* const handle = Open(Config());
    EXPECT_EQ(m_trace(handle, &m_time, L"one \u00FC\r\n"), 0U);
    EXPECT_EQ(m_trace(handle, &m_time, L"two\r\n"), 0U);
    EXPECT_EQ(m_uninitialize(handle), 0U);
    EXPECT_EQ(ReadBytes(Path()), "one \xC3\xBC\r\ntwo\r\n");
}

TEST_F(VdDbgExports, ContinueTheFileAfterCloseAndReopen)
{
    void* handle = Open(Config());
    EXPECT_EQ(m_trace(handle, &m_time, L"one\r\n"), 0U);
    EXPECT_EQ(m_uninitialize(handle), 0U);
    handle = Open(Config());
    EXPECT_EQ(m_trace(handle, &m_time, L"two\r\n"), 0U);
    EXPECT_EQ(m_uninitialize(handle), 0U);
    EXPECT_EQ(ReadBytes(Path()), "one\r\ntwo\r\n");
}

TEST_F(VdDbgExports, ContinueTheFileAfterTheLibraryWasUnloadedAndLoadedAgain)
{
    EXPECT_EQ(m_trace(Open(Config()), &m_time, L"one\r\n"), 0U);
    m_library.reset();
    ASSERT_EQ(GetModuleHandleA(TRACE_LIBRARY), nullptr);
    m_library = Load();
    m_initialize = Find<VdDbgInitializeFunction>(m_library, "VdDbgInitialize");
    m_trace = Find<VdDbgTraceFunction>(m_library, "VdDbgTrace");
    EXPECT_EQ(m_trace(Open(Config()), &m_time, L"two\r\n"), 0U);
    EXPECT_EQ(ReadBytes(Path()), "one\r\ntwo\r\n");
}

TEST_F(VdDbgExports, UnloadingTheLibraryClosesTheLogsThatAreOpen)
{
    Open(Config());
    EXPECT_FALSE(IsFree(Path()));
    m_library.reset();
    EXPECT_TRUE(IsFree(Path()));
}

TEST_F(VdDbgExports, RefuseLinesAfterUninitialize)
{
    void* const handle = Open(Config());
    EXPECT_EQ(m_uninitialize(handle), 0U);
    EXPECT_NE(m_trace(handle, &m_time, L"late\r\n"), 0U);
    EXPECT_NE(m_uninitialize(handle), 0U);
    EXPECT_EQ(ReadBytes(Path()), "");
}

TEST_F(VdDbgExports, RefuseMissingArgumentsAndHandlesOfNobody)
{
    const DebugLogConfig config = Config();
    void* handle = nullptr;
    EXPECT_NE(m_initialize(nullptr, &config), 0U);
    EXPECT_NE(m_initialize(&handle, nullptr), 0U);
    EXPECT_NE(m_trace(nullptr, &m_time, L"line\r\n"), 0U);
    EXPECT_NE(m_trace(this, &m_time, L"line\r\n"), 0U);
    EXPECT_NE(m_uninitialize(nullptr), 0U);
    EXPECT_NE(m_uninitialize(this), 0U);
    handle = Open(config);
    EXPECT_NE(m_trace(handle, nullptr, L"line\r\n"), 0U);
    EXPECT_NE(m_trace(handle, &m_time, nullptr), 0U);
    EXPECT_EQ(m_uninitialize(handle), 0U);
}

TEST_F(VdDbgExports, GiveAnErrorForAFolderThatCannotBeMade)
{
    WriteBytes(m_folder.File(L"a"), "a file in the way");
    const DebugLogConfig config = Config();
    void* handle = this;
    EXPECT_NE(m_initialize(&handle, &config), 0U);
    EXPECT_EQ(handle, nullptr);
}

TEST_F(VdDbgExports, SendLinesToTheDebuggerWhenTheSettingsAskForIt)
{
    DebugLogConfig config = Config();
    config.debugger = true;
    void* const handle = Open(config);
    const DebuggerOutput output;
    EXPECT_EQ(m_trace(handle, &m_time, L"one\r\n"), 0U);
    EXPECT_EQ(output.Texts(), std::vector<std::string>{"one\r\n"});
    EXPECT_EQ(m_uninitialize(handle), 0U);
}

TEST_F(VdDbgExports, BeginANewFileAtTenMegabytesAndOnANewDay)
{
    void* const handle = Open(Config());
    const std::wstring line = std::wstring(1024 * 1024 - 2, L'x') + L"\r\n";
    for (int i = 0; i < 11; ++i)
    {
        EXPECT_EQ(m_trace(handle, &m_time, line.c_str()), 0U);
    }
    const SYSTEMTIME tomorrow = At(2011, 3, 6);
    EXPECT_EQ(m_trace(handle, &tomorrow, L"tomorrow\r\n"), 0U);
    EXPECT_EQ(m_uninitialize(handle), 0U);
    EXPECT_EQ(std::filesystem::file_size(m_folder.File(L"a\\b\\zptKestrix.2.log")), 10U * 1024 * 1024);
    EXPECT_EQ(std::filesystem::file_size(m_folder.File(L"a\\b\\zptKestrix.1.log")), 1U * 1024 * 1024);
    EXPECT_EQ(ReadBytes(Path()), "tomorrow\r\n");
}
