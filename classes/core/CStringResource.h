#pragma once

#include "classes/core/CWString.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CDataCube;

// The texts of the user interface in one language, looked up by key. Copies are independent.
class CStringResource
{
public:
    using TranslateFunction = void (*)(CDataCube*, unsigned char);

    // Replaces all texts by those in pTranslate's table for the language (keys in the first column, texts in the
    // second). If rows have the same key, the first one counts. Null gives no texts.
    // bRightToLeft: the language is written from right to left.
    void Initialize(TranslateFunction pTranslate, unsigned char uLanguage, bool bRightToLeft = false);

    // The text of the key. An unknown key gives itself if bKeyIfMissing is true, so that a forgotten text is visible
    // and the program still usable; otherwise it gives an empty text. Null and empty keys give an empty text.
    CWString Get(const wchar_t* sKey, bool bKeyIfMissing) const;

    unsigned char GetLanguage() const { return m_uLanguage; }
    bool IsRightToLeft() const { return m_bRightToLeft; }

private:
    using Entry = std::pair<std::wstring, CWString>;

    // Sorted by key.
    std::vector<Entry> m_Entries;
    unsigned char m_uLanguage{};
    bool m_bRightToLeft{};
};
