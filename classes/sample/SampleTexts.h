#pragma once

class CDataCube;

// The sample's texts, in English for every language.
void FillSampleTexts(CDataCube* pTexts, unsigned char byLanguage);
