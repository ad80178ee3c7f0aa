#pragma once

class CDataCube;

// The sample's texts, in English whatever the language.
void FillSampleTexts(CDataCube* pTexts, unsigned char byLanguage);
