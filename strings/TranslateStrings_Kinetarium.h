#pragma once

class CDataCube;

// Replaces the contents of *pStrings by all texts of the user interface in the language of that index (see
// Languages.h): two columns, "IDS" for the keys and "Strings" for the texts, one row per key. An index without a
// language gives English. Does nothing for null.
void TranslateStrings_Kinetarium(CDataCube* pStrings, unsigned char uLanguage) noexcept;

// The fillers, one per language: each adds all rows, in the order of StringTable.h, to a table that has the two
// columns. An error is reported, and the table keeps the rows added before it.
void TranslateStrings_Kinetarium_Arabic(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Belarusian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Flemish(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Chinese(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Danish(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Dutch(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_English(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Estonian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Finnish(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_French(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_German(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Indonesian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Italian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Latvian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Lithuanian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Norwegian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Portuguese(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Russian(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Spanish(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Swedish(CDataCube* pStrings) noexcept;
void TranslateStrings_Kinetarium_Turkish(CDataCube* pStrings) noexcept;
