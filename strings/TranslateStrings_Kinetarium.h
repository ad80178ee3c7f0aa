#pragma once

class CDataCube;

// Replaces the contents of *pStrings by all texts of the user interface in the language of that index (see
// Languages.h): two columns, "IDS" for the keys and "Strings" for the texts, one row per key. An index without a
// language gives English. Does nothing for null.
void TranslateStrings_Kinetarium(CDataCube* pStrings, unsigned char uLanguage) noexcept;
