#include "suite/import/FileImport.h"

#include "suite/common/Failure.h"
#include "suite/import/DailyFile.h"
#include "suite/import/DatabaseFeed.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace Import
{

namespace
{

using std::filesystem::path;

// The daily files of a folder in the order of their names. Throws BadFile when it has none or cannot be listed.
std::vector<path> FilesOfFolder(const path& folder)
{
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    std::vector<path> files;
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
    {
        std::error_code unknown;
        if (entries->is_regular_file(unknown) && ParseDailyName(entries->path()))
        {
            files.push_back(entries->path());
        }
    }
    if (error)
    {
        throw BadFile("cannot be listed (system error " + std::to_string(error.value()) +
                      "). Check that you may read the folder.");
    }
    if (files.empty())
    {
        throw BadFile("has no daily files, whose names are a date and the letters of a log, as in 20260131.VLG.");
    }
    std::ranges::sort(files);
    return files;
}

std::vector<path> FilesOf(const path& given)
{
    std::error_code error;
    return std::filesystem::is_directory(given, error) ? FilesOfFolder(given) : std::vector{given};
}

class FileImport
{
public:
    FileImport(const path& database, const Audience& audience) : m_database(database), m_audience(audience) {}

    Progress Run(std::span<const path> paths)
    {
        std::vector<path> files;
        for (const path& given : paths)
        {
            const bool isListed = LeaveOutWhatIsBad(given,
                                                    [&]
                                                    {
                                                        const std::vector<path> found = FilesOf(given);
                                                        files.insert(files.end(), found.begin(), found.end());
                                                    });
            m_progress.files += isListed ? 0 : 1;
        }
        m_progress.files += files.size();
        for (const path& file : files)
        {
            m_progress.done += LeaveOutWhatIsBad(file, [&] { Take(file); }) ? 1 : 0;
            m_audience.progress(m_progress);
        }
        if (files.empty())
        {
            m_audience.progress(m_progress);
        }
        return m_progress;
    }

private:
    template <class Work>
    bool LeaveOutWhatIsBad(const path& name, Work work)
    {
        try
        {
            work();
            return true;
        }
        catch (const BadFile& bad)
        {
            m_progress.left += 1;
            m_audience.fault(Suite::Utf8(name) + " " + bad.what());
            return false;
        }
    }

    void Take(const path& file)
    {
        const std::optional<DailyName> name = ParseDailyName(file);
        if (!name)
        {
            throw BadFile("is neither a folder nor a daily file, whose name is a date and the letters of a log, as in "
                          "20260131.VLG.");
        }
        const auto [before, isNew] = m_taken.try_emplace({name->kind->subType, name->day}, file);
        if (!isNew)
        {
            throw BadFile("has the same day of the same log as " + Suite::Utf8(before->second) +
                          ", and would replace it. Import the one that you want to keep.");
        }
        const std::vector<std::wstring> lines = ReadDailyFile(file);
        if (!m_feed)
        {
            m_feed.emplace(m_database);
        }
        m_progress.records += m_feed->Put(*name->kind, name->day, lines);
    }

    const path m_database;
    const Audience& m_audience;
    std::optional<DatabaseFeed> m_feed; // made with the first file that can be read
    std::map<std::pair<std::uint32_t, EventLog::Day>, path> m_taken;
    Progress m_progress;
};

} // namespace

Progress ImportFiles(const path& database, std::span<const path> paths, const Audience& audience)
{
    return FileImport(database, audience).Run(paths);
}

} // namespace Import
