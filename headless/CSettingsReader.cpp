#include "headless/CSettingsReader.h"

#include "app/SettingsRules.h"
#include "classes/core/Utf8.h"
#include "headless/CIniText.h"
#include "headless/HeadlessError.h"

#include <utility>

namespace
{

constexpr std::uint32_t c_uByteMask = 0xFF;
constexpr std::int64_t c_iLargestColour = 0xFFFFFF;

} // namespace

CSettingsReader::CSettingsReader(std::string sFile, const CIniText* pFile) : m_sFile(std::move(sFile)), m_pFile(pFile)
{
}

int CSettingsReader::GetNumber(const wchar_t* sKey, int defaultValue, int low, int high) const
{
    const std::int32_t value = GetInt(sKey, defaultValue);
    CheckRange(sKey, value, low, high);
    return value;
}

std::uint8_t CSettingsReader::GetByte(const wchar_t* sKey, std::uint8_t uDefault, std::uint8_t uLow,
                                      std::uint8_t uHigh) const
{
    const auto uValue = static_cast<std::uint8_t>(static_cast<std::uint32_t>(GetInt(sKey, uDefault)) & c_uByteMask);
    CheckRange(sKey, uValue, uLow, uHigh);
    return uValue;
}

ColourRef CSettingsReader::GetColour(const wchar_t* sKey, ColourRef defaultColour) const
{
    const auto uValue = static_cast<std::uint32_t>(GetInt(sKey, static_cast<std::int32_t>(defaultColour)));
    CheckRange(sKey, uValue, 0, c_iLargestColour);
    return uValue;
}

CWString CSettingsReader::GetFactor(const wchar_t* sKey, const wchar_t* sDefault) const
{
    if (m_pFile == nullptr)
    {
        return sDefault;
    }
    return m_pFile->GetString(SettingsFile::c_sSection, sKey, sDefault, SettingsFile::c_uFactorBuffer - 1);
}

std::int32_t CSettingsReader::GetInt(const wchar_t* sKey, std::int32_t defaultValue) const
{
    return m_pFile != nullptr ? m_pFile->GetInt(SettingsFile::c_sSection, sKey, defaultValue) : defaultValue;
}

void CSettingsReader::CheckRange(const wchar_t* sKey, std::int64_t value, std::int64_t low, std::int64_t high) const
{
    if (value < low || value > high)
    {
        Fail(sKey, std::to_string(value) + " is out of range; allowed is " + std::to_string(low) + " to " +
                       std::to_string(high));
    }
}

void CSettingsReader::Fail(const wchar_t* sKey, const std::string& sWhat) const
{
    const CIniEntry* const pEntry = m_pFile != nullptr ? m_pFile->Find(SettingsFile::c_sSection, sKey) : nullptr;
    const std::string sLine = pEntry != nullptr ? ", line " + std::to_string(pEntry->uLine) : "";
    throw CHeadlessError(m_sFile + sLine + ", " + Utf8FromWide(sKey) + ": " + sWhat);
}
