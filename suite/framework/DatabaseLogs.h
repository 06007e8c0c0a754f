#pragma once

#include "suite/framework/Service.h"

#include <filesystem>

namespace Framework
{

// The events in the database of an installation, which must exist when some are to be deleted.
class DatabaseLogs : public EventLogs
{
public:
    explicit DatabaseLogs(const std::filesystem::path& folder);

    void DeleteThrough(std::uint32_t kind, std::uint32_t day) override;

private:
    const std::filesystem::path m_file;
};

} // namespace Framework
