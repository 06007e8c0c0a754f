#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of the web threat check: the address that was met, what it was taken for and how dangerous it was. Records of
// dangerous content have a second address and no category of their own.
class CZPTLogPhish : public CZPTLogBase
{
public:
    explicit CZPTLogPhish(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
    void SetLogInfo(LogRec* record) override;

    // The text of the category of a record, whose field still holds the code of it. Empty without a record, and as long
    // as the log has no page.
    virtual void GetPhishCategoryText(const LogRec* record, std::wstring& text) const;

protected:
    std::size_t ColumnField(const LogRec& record, std::size_t column) const override;
    void AddInfoTexts(const LogRec& record, ShownTexts& texts) const override;

private:
    std::wstring_view CategoryText(const LogRec& record) const;
};
