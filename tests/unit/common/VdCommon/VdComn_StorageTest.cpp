#include "common/VdCommon/VdComn_Storage.h"

#include "common/VdCommon/VdComn_IniFile.h"
#include "common/VdCommon/VdComn_Registry.h"
#include "tests/support/AllocationWatch.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

namespace
{

using namespace VdCommon::Storage;
using VdCommon::ByteArray;

static_assert(std::is_abstract_v<Base> && std::has_virtual_destructor_v<Base>);
static_assert(std::is_base_of_v<VdCommon::Exception::Base, Exception>);
static_assert(offsetof(Key, kind) == 0 && offsetof(Key, root) == 8 && offsetof(Key, path) == 16);
static_assert(Key::Registry == 0 && Key::IniFile == 1 && Key::RegistryToo == 4);

// The place of a virtual operation in the table. The destructor has the first two.
template <class Member>
std::size_t SlotOf(Member member)
{
    std::uintptr_t offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return (offset - 1) / sizeof(void*);
}

TEST(StorageBase, VirtualOperationsStandInTheirOrder)
{
    bool (Base::*const deleteByPointer)(const wchar_t*) = &Base::DeleteValue;
    bool (Base::*const deleteByName)(const std::wstring&) = &Base::DeleteValue;
    const std::size_t slots[] = {
        SlotOf(&Base::OpenRead),
        SlotOf(&Base::OpenCreate),
        SlotOf(&Base::OpenWrite),
        SlotOf(&Base::OpenEnumerate),
        SlotOf(&Base::Close),
        SlotOf(&Base::Flush),
        SlotOf(&Base::QueryBinaryNoThrow),
        SlotOf(&Base::QueryBinary),
        SlotOf(&Base::QueryStringNoThrow),
        SlotOf(&Base::QueryString),
        SlotOf(&Base::QueryNumberNoThrow),
        SlotOf(&Base::QueryNumber),
        SlotOf(&Base::SetBinary),
        SlotOf(&Base::SetString),
        SlotOf(&Base::SetQword),
        SlotOf(&Base::SetNumber),
        SlotOf(&Base::DeleteLocation),
        SlotOf(deleteByPointer),
        SlotOf(deleteByName),
        SlotOf(&Base::ListKeys),
        SlotOf(&Base::ListValues),
    };
    std::size_t expected = 2;
    for (const std::size_t slot : slots)
    {
        EXPECT_EQ(slot, expected++);
    }
    EXPECT_EQ(expected, 23u);
}

// Has only what every kind of storage must have.
class LeastStorage : public Base
{
public:
    bool OpenRead(const Key&, const std::wstring&) override { return true; }

    bool OpenCreate(const Key&, const std::wstring&) override { return true; }

    bool Close(const bool&) override { return true; }

    bool Flush() override { return true; }

    std::wstring QueryString(const std::wstring&, const std::wstring&) override { return L"stored"; }

    std::uint32_t QueryNumber(const std::wstring&, std::uint32_t) override { return 1; }

    bool SetString(const std::wstring&, const std::wstring&) override { return true; }

    bool SetNumber(const std::wstring&, std::uint32_t) override { return true; }

    bool DeleteLocation() override { return true; }

    bool DeleteValue(const wchar_t*) override { return true; }

    bool DeleteValue(const std::wstring&) override { return true; }
};

TEST(StorageBase, OperationsThatAKindOfStorageLacksGiveFalseOrTheDefault)
{
    LeastStorage least;
    Base& storage = least;
    const Key key = Key::InRegistry(HKEY_LOCAL_MACHINE, L"Software");
    ByteArray bytes;
    std::vector<std::wstring> names;
    std::uint32_t error = 12345;
    EXPECT_FALSE(storage.OpenWrite(key, L"sub"));
    EXPECT_FALSE(storage.OpenEnumerate(key, L"sub"));
    EXPECT_FALSE(storage.QueryBinaryNoThrow(L"name", bytes, &error));
    EXPECT_FALSE(storage.QueryBinary(L"name", bytes));
    EXPECT_EQ(storage.QueryStringNoThrow(L"name", L"default", &error), L"default");
    EXPECT_EQ(storage.QueryNumberNoThrow(L"name", 77, &error), 77u);
    EXPECT_FALSE(storage.SetBinary(L"name", bytes));
    EXPECT_FALSE(storage.SetQword(L"name", 1));
    EXPECT_FALSE(storage.ListKeys(names));
    EXPECT_FALSE(storage.ListValues(names));
    EXPECT_EQ(error, 12345u);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(bytes.Size(), 0u);
}

// The registry as a place for the tests of both kinds.
class RegistryPlace
{
public:
    using Storage = Registry;
    static constexpr std::uint32_t NotOpenCode = 6;

    Key Location() const { return Key::InRegistry(HKEY_LOCAL_MACHINE, L"Software\\Kestrix"); }

    static bool IsMissing(Base& storage, const std::wstring& name)
    {
        return ThrownCode([&] { storage.QueryString(name, L"default"); }) == ERROR_FILE_NOT_FOUND;
    }

    // The location below which DeleteLocation takes its key away.
    static bool OpenToDelete(Base& storage, const Key& key, const std::wstring& subPath)
    {
        return storage.OpenWrite(key, subPath);
    }

private:
    RegistrySandbox m_sandbox;
};

// An INI file as such a place.
class IniFilePlace
{
public:
    using Storage = IniFile;
    static constexpr std::uint32_t NotOpenCode = 160;

    Key Location() const { return Key::InIniFile(m_folder.Path().c_str(), L"settings.ini"); }

    static bool IsMissing(Base& storage, const std::wstring& name)
    {
        return storage.QueryString(name, L"default") == L"default";
    }

    static bool OpenToDelete(Base& storage, const Key& key, const std::wstring& subPath)
    {
        return storage.OpenRead(key, subPath);
    }

private:
    TemporaryFolder m_folder;
};

template <class Place>
class EitherStorage : public ::testing::Test
{
protected:
    // A new object at the same location as all others of the test.
    std::unique_ptr<Base> Opened(const std::wstring& subPath = L"Part")
    {
        auto storage = std::make_unique<typename Place::Storage>();
        EXPECT_TRUE(storage->OpenCreate(m_place.Location(), subPath));
        return storage;
    }

    // Every operation that looks at the location, with the code that it throws.
    static std::vector<std::uint32_t> CodesOfAllOperations(Base& storage)
    {
        return {
            ThrownCode([&] { storage.Flush(); }),
            ThrownCode([&] { storage.QueryString(L"name", L""); }),
            ThrownCode([&] { storage.QueryNumber(L"name", 0); }),
            ThrownCode([&] { storage.SetString(L"name", L""); }),
            ThrownCode([&] { storage.SetNumber(L"name", 0); }),
            ThrownCode([&] { storage.DeleteLocation(); }),
            ThrownCode([&] { storage.DeleteValue(L"name"); }),
            ThrownCode([&] { storage.DeleteValue(std::wstring(L"name")); }),
        };
    }

    static std::vector<std::uint32_t> NotOpen() { return std::vector<std::uint32_t>(8, Place::NotOpenCode); }

    Place m_place;
};

using Places = ::testing::Types<RegistryPlace, IniFilePlace>;

class PlaceNames
{
public:
    template <class Place>
    static std::string GetName(int)
    {
        return std::is_same_v<Place, RegistryPlace> ? "Registry" : "IniFile";
    }
};

TYPED_TEST_SUITE(EitherStorage, Places, PlaceNames);

TYPED_TEST(EitherStorage, NumberIsReadBack)
{
    for (const std::uint32_t number : {0u, 1u, 256u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
    {
        EXPECT_TRUE(this->Opened()->SetNumber(L"Level", number));
        EXPECT_EQ(this->Opened()->QueryNumber(L"Level", 7), number);
    }
}

TYPED_TEST(EitherStorage, TextIsReadBack)
{
    for (const wchar_t* const text : {L"12characters", L"", L"a", L"C:\\Program Files\\Suite\\", L"one = two"})
    {
        EXPECT_TRUE(this->Opened()->SetString(L"LogFolder", text));
        EXPECT_EQ(this->Opened()->QueryString(L"LogFolder", L"default"), text);
    }
}

TYPED_TEST(EitherStorage, TextOfAnyLengthIsReadBack)
{
    for (const std::size_t length : {254u, 255u, 256u, 257u, 510u, 511u, 512u, 767u, 5000u})
    {
        const std::wstring text(length, L'x');
        EXPECT_TRUE(this->Opened()->SetString(L"LogFolder", text));
        EXPECT_EQ(this->Opened()->QueryString(L"LogFolder", L""), text) << length;
    }
}

TYPED_TEST(EitherStorage, SubPathsAreLocationsOfTheirOwn)
{
    this->Opened(L"ServiceSession")->SetNumber(L"Enable", 1);
    this->Opened(L"InteractiveSession")->SetNumber(L"Enable", 2);
    EXPECT_EQ(this->Opened(L"ServiceSession")->QueryNumber(L"Enable", 0), 1u);
    EXPECT_EQ(this->Opened(L"InteractiveSession")->QueryNumber(L"Enable", 0), 2u);
}

TYPED_TEST(EitherStorage, ValueIsDeletedByNameAndByPointer)
{
    const auto storage = this->Opened();
    storage->SetString(L"one", L"1");
    storage->SetString(L"two", L"2");
    EXPECT_TRUE(storage->DeleteValue(L"one"));
    EXPECT_TRUE(TypeParam::IsMissing(*storage, L"one"));
    EXPECT_FALSE(TypeParam::IsMissing(*storage, L"two"));
    EXPECT_TRUE(storage->DeleteValue(std::wstring(L"two")));
    EXPECT_TRUE(TypeParam::IsMissing(*storage, L"two"));
}

TYPED_TEST(EitherStorage, DeletedLocationTakesItsValuesAlongAndNoOthers)
{
    this->Opened(L"Other")->SetString(L"name", L"other");
    this->Opened()->SetString(L"name", L"value");
    typename TypeParam::Storage storage;
    ASSERT_TRUE(TypeParam::OpenToDelete(storage, this->m_place.Location(), L"Part"));
    EXPECT_TRUE(storage.DeleteLocation());
    EXPECT_TRUE(TypeParam::IsMissing(*this->Opened(), L"name"));
    EXPECT_EQ(this->Opened(L"Other")->QueryString(L"name", L""), L"other");
}

TYPED_TEST(EitherStorage, FlushedCloseKeepsTheValues)
{
    const auto storage = this->Opened();
    storage->SetNumber(L"Enable", 1);
    EXPECT_TRUE(storage->Flush());
    EXPECT_TRUE(storage->Close(true));
    EXPECT_EQ(this->Opened()->QueryNumber(L"Enable", 0), 1u);
}

TYPED_TEST(EitherStorage, NothingWorksBeforeAnOpening)
{
    typename TypeParam::Storage storage;
    EXPECT_EQ(this->CodesOfAllOperations(storage), this->NotOpen());
}

TYPED_TEST(EitherStorage, NothingWorksBehindAClose)
{
    for (const bool flush : {false, true})
    {
        const auto storage = this->Opened();
        ASSERT_TRUE(storage->Close(flush));
        EXPECT_EQ(this->CodesOfAllOperations(*storage), this->NotOpen());
    }
}

TYPED_TEST(EitherStorage, ClosedObjectCanBeOpenedAgain)
{
    const auto storage = this->Opened(L"One");
    storage->SetNumber(L"Enable", 1);
    storage->Close(false);
    EXPECT_TRUE(storage->OpenRead(this->m_place.Location(), L"One"));
    EXPECT_EQ(storage->QueryNumber(L"Enable", 0), 1u);
}

TYPED_TEST(EitherStorage, CaughtExceptionsLeaveNothingBehind)
{
    typename TypeParam::Storage storage;
    const auto failAll = [&] { this->CodesOfAllOperations(storage); };
    failAll(); // what the first exception of a process sets up stays
    const AllocationWatch watch;
    failAll();
    EXPECT_EQ(watch.BlocksOut(), 0);
}

TYPED_TEST(EitherStorage, ExceptionIsMadeOnTheHeapForItsCatcherToDestroy)
{
    typename TypeParam::Storage storage;
    ThrownCode([&] { storage.Flush(); });
    const AllocationWatch watch;
    VdCommon::Exception::Base* caught = nullptr;
    try
    {
        storage.Flush();
    }
    catch (VdCommon::Exception::Base* thrown)
    {
        caught = thrown;
    }
    EXPECT_GT(watch.BlocksOut(), 0);
    delete caught;
    EXPECT_EQ(watch.BlocksOut(), 0);
}

TYPED_TEST(EitherStorage, ExceptionTellsWhereItWasThrown)
{
    typename TypeParam::Storage storage;
    try
    {
        storage.Flush();
        FAIL() << "no exception";
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        EXPECT_NE(caught->File().find("common/VdCommon/VdComn_"), std::string::npos);
        EXPECT_GT(caught->Line(), 0u);
    }
}

} // namespace
