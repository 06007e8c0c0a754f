#include "suite/framework/ValueStore.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <system_error>
#include <thread>

using namespace Framework;

namespace
{

constexpr ValueKey StoredKey{112, 1};

class ValueStoreTest : public ::testing::Test
{
protected:
    bool Exists(const wchar_t* name) const { return std::filesystem::exists(m_folder.Path() / name); }

    // As another program may have the file open.
    UniqueFile OpenWithoutSharing() const
    {
        const std::wstring path = m_folder.File(ValueStore::FileName);
        UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(file);
        return file;
    }

    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(ValueStoreTest, WithoutAFileThereIsNoValue)
{
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), std::nullopt);
    EXPECT_FALSE(Exists(ValueStore::FileName));
}

TEST_F(ValueStoreTest, ValuesAreFoundByTheNextStore)
{
    {
        ValueStore store(m_folder.Path());
        store.Set(StoredKey, {1u});
        store.Set({113, 2}, {true});
        store.Set(StoredKey, {2u});
        EXPECT_EQ(store.Get(StoredKey), (List{2u}));
    }
    const ValueStore again(m_folder.Path());
    EXPECT_EQ(again.Get(StoredKey), (List{2u}));
    EXPECT_EQ(again.Get({113, 2}), (List{true}));
    EXPECT_EQ(again.Get({113, 1}), std::nullopt);
}

TEST_F(ValueStoreTest, ADamagedFileIsSetAsideAndTheStoreGoesOn)
{
    ValueStore(m_folder.Path()).Set(StoredKey, {1u});
    const std::string bytes = ReadBytes(m_folder.File(ValueStore::FileName));
    const std::string half = bytes.substr(0, bytes.size() / 2);
    WriteBytes(m_folder.File(ValueStore::FileName), half);

    ValueStore store(m_folder.Path());
    EXPECT_EQ(store.Get(StoredKey), std::nullopt);
    EXPECT_FALSE(Exists(ValueStore::FileName));
    EXPECT_EQ(ReadBytes(m_folder.File(ValueStore::DamagedName)), half);

    store.Set(StoredKey, {3u});
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), (List{3u}));
}

TEST_F(ValueStoreTest, AFileThatCannotBeReadIsNoDamage)
{
    ValueStore(m_folder.Path()).Set(StoredKey, {1u});
    const UniqueFile other = OpenWithoutSharing();
    EXPECT_THROW(ValueStore(m_folder.Path()), std::system_error);
    EXPECT_FALSE(Exists(ValueStore::DamagedName));
}

TEST_F(ValueStoreTest, AFileThatAnotherHasOpenForAMomentIsWaitedFor)
{
    ValueStore store(m_folder.Path());
    store.Set(StoredKey, {1u});
    UniqueFile other = OpenWithoutSharing();
    const std::jthread closing(
        [&]
        {
            Sleep(200);
            other.reset();
        });
    store.Set(StoredKey, {2u});
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), (List{2u}));
}

TEST_F(ValueStoreTest, AFileThatAnotherKeepsOpenIsNotReplaced)
{
    ValueStore store(m_folder.Path());
    store.Set(StoredKey, {1u});
    {
        const UniqueFile other = OpenWithoutSharing();
        EXPECT_THROW(store.Set(StoredKey, {2u}), std::system_error);
    }
    EXPECT_EQ(store.Get(StoredKey), (List{1u}));
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), (List{1u}));
}

TEST_F(ValueStoreTest, AValueThatCannotBeWrittenIsNotKept)
{
    ValueStore store(m_folder.Path());
    store.Set(StoredKey, {1u});
    std::filesystem::create_directory(m_folder.Path() / L"Framework.new"); // where the new file would be written
    EXPECT_THROW(store.Set(StoredKey, {2u}), std::system_error);
    EXPECT_EQ(store.Get(StoredKey), (List{1u}));
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), (List{1u}));
}

// A process that is killed while it writes leaves this.
TEST_F(ValueStoreTest, HalfANewFileBesideTheOldOneIsNeitherReadNorInTheWay)
{
    ValueStore(m_folder.Path()).Set(StoredKey, {1u});
    const std::string bytes = ReadBytes(m_folder.File(ValueStore::FileName));
    WriteBytes(m_folder.File(L"Framework.new"), bytes.substr(0, bytes.size() / 2));
    ValueStore store(m_folder.Path());
    EXPECT_EQ(store.Get(StoredKey), (List{1u}));
    store.Set(StoredKey, {2u});
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(StoredKey), (List{2u}));
    EXPECT_FALSE(Exists(L"Framework.new"));
}

TEST_F(ValueStoreTest, AFirstValueThatCannotBeWrittenIsNotThere)
{
    ValueStore store(m_folder.Path());
    std::filesystem::create_directory(m_folder.Path() / L"Framework.new");
    EXPECT_THROW(store.Set(StoredKey, {2u}), std::system_error);
    EXPECT_EQ(store.Get(StoredKey), std::nullopt);
}
