#pragma once

class CDataCube;

// The fillers, one per language: each adds all rows in the one order to a table that has the two columns. What fails is
// reported, and the table stays as far as it was filled.
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
