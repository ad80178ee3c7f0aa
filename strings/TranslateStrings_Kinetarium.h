#pragma once

class CDataCube;

// Makes *pStrings the table of all texts of the user interface in the language of that index (see Languages.h): two
// columns, "IDS" for the keys and "Strings" for the texts, one row per key. Whatever the table held before is gone.
// An index that is no language's gives English. A null table is left alone.
void TranslateStrings_Kinetarium(CDataCube* pStrings, unsigned char uLanguage) noexcept;
