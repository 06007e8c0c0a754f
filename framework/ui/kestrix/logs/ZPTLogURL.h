#pragma once

#include "common/DataConversion/Frwk_ComPrpUrlCategoryGroup.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include <unordered_map>

// The log of the URL filter: which address was met, what was done about it and why. A line has the key of a category;
// the names of the categories come from the service framework, which each new log asks once, with the thread waiting.
class CZPTLogURL : public CZPTLogBase
{
public:
    explicit CZPTLogURL(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

private:
    using CategoryGroups = std::vector<Frwk::DataTypes::UrlCategoryGroup>;

    // Fills the list from the service framework; a failure is traced and leaves the groups that came before it.
    static void GetURLFilterCategoryList(CategoryGroups& list);

    // Sets the category of the line being parsed.
    void FindCategoryName(std::wstring_view key) const;

    void PutFields(std::wstring_view key, LogRec& record) const;

    CategoryGroups m_listCategoryGroup;
    // The place of each key in the list, the first one of a key that stands there twice: a list can be long, and every
    // line asks for a key.
    std::unordered_map<std::wstring_view, std::size_t> m_mapCategoryGroup;
};
