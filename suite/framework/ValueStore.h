#pragma once

#include "suite/framework/ValueFile.h"

#include <filesystem>
#include <mutex>

namespace Framework
{

// The values that are kept, in one file. Any thread may use it.
class ValueStore
{
public:
    static constexpr wchar_t FileName[] = L"Framework.dat";

    // What a damaged file is called when it is set aside; an older one of this name goes.
    static constexpr wchar_t DamagedName[] = L"Framework.damaged";

    // Reads the file in this folder. A missing one holds no values; a damaged one is set aside and holds none either.
    // Throws std::system_error when there is a file that cannot be read.
    explicit ValueStore(std::filesystem::path folder);

    const std::filesystem::path& Folder() const { return m_folder; }

    // Nothing when the value was never kept.
    std::optional<List> Get(const ValueKey& key) const;

    // When it returns the file has the value, and at no moment is there half a file. Throws std::system_error, and has
    // then changed nothing.
    void Set(const ValueKey& key, List list);

private:
    void Write() const;

    const std::filesystem::path m_folder;
    mutable std::mutex m_mutex;
    Values m_values;
};

} // namespace Framework
