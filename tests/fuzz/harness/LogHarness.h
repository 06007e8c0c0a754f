#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/fuzz/LogReferences.h"
#include "tests/fuzz/harness/Harnesses.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <memory>
#include <span>

namespace Fuzz
{

// Pieces of lines that the logs tell apart.
inline constexpr std::wstring_view LogWords =
    L"0 1 2 3 4 5 7 8 25 99 101 201 0x100000 1048577 1048579 01 0x10000000 268435456 80 | |||| \r\n \n "
    L"103015 2026/11/20 192.0.2.10 10.0.0.2 2001:db8::1 LIP a%Ib%%c 100%s \"quoted\" a\tb 03 48 -- 128 153 "
    L"__ZPT_SELF_PROTECT__ __ZPT_USER_DEFINED__";

// Lines of a log of any kind, read by its class and by its reference. The first character of an input says the kind.
class LogReader : private WithCategoryService, public TextReader
{
protected:
    explicit LogReader(bool fromDatabase);

private:
    // What the class made of the text, with a log that has just been made, up to its first bad line.
    virtual void Load(CZPTLogBase& log, const std::wstring& extension, std::wstring_view text) = 0;

    // The lines that the class is given of the text.
    virtual std::vector<std::wstring> LinesOf(std::wstring_view text) const = 0;

    std::vector<std::wstring> Texts() const override;
    std::size_t ReadText(std::wstring_view text) override;

    std::vector<ExpectedRecord> Expected(std::uint32_t type, std::wstring_view text) const;
    void ExpectRecords(const CZPTLogBase& log, const std::vector<ExpectedRecord>& expected) const;
    void ExpectOrder(const CZPTLogBase& log, const LogKind& kind, const std::vector<ExpectedRecord>& records) const;
    void ExpectExport(CZPTLogBase& log, std::uint32_t type, const std::vector<ExpectedRecord>& records) const;
    void ShowAll(CZPTLogBase& log);

    const bool m_bFromDatabase;
    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    InfoPaneDouble m_pane;
};

} // namespace Fuzz
