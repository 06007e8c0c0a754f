#pragma once

#include <string>
#include <string_view>
#include <vector>

// What is shown of one record, text by text and whole where its place cuts it. The texts last as long as the record and
// this object, and until the next Clear. It is kept from one record to the next for its room.
class ShownTexts
{
public:
    void Clear() { m_arrText.clear(); }

    void Add(std::wstring_view text) { m_arrText.push_back(text); }

    // A text that is made of parts; a record has one of them at most.
    void AddMade(std::wstring_view first, std::wstring_view between, std::wstring_view second)
    {
        m_strMade.assign(first).append(between).append(second);
        Add(m_strMade);
    }

    auto begin() const { return m_arrText.begin(); }

    auto end() const { return m_arrText.end(); }

private:
    std::vector<std::wstring_view> m_arrText;
    std::wstring m_strMade;
};
