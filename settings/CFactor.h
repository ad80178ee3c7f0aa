#pragma once

#include "classes/core/CWString.h"

#include <cstdint>

// The form of a factor's text.
enum class EnumFactorForm : std::uint8_t
{
    Unset,     // empty
    NotNumber, // "abc", "%", "5%%"; also "50% ", whose percent sign is not the last character
    Number,    // "12.34"
    Percentage // "12.34%"
};

// A colour factor: the text as typed, and the number that it stands for. The text is parsed here and nowhere else.
class CFactor
{
public:
    CFactor() = default;
    explicit CFactor(CWString sText);

    const CWString& GetText() const { return m_sText; }
    EnumFactorForm GetForm() const { return m_eForm; }
    bool IsSet() const { return m_eForm != EnumFactorForm::Unset; }

    // True for a number or a percentage.
    bool HasValue() const { return m_eForm == EnumFactorForm::Number || m_eForm == EnumFactorForm::Percentage; }

    // The number, 25 for "25%". 0 without a value.
    double GetValue() const { return m_dValue; }

    // True if the number as typed is below zero: also for "-1e-400", whose double is zero, but not for "-0".
    bool IsBelowZero() const { return m_bBelowZero; }

    bool operator==(const CFactor& other) const { return m_sText == other.m_sText; }

private:
    CWString m_sText;
    double m_dValue = 0.0;
    EnumFactorForm m_eForm = EnumFactorForm::Unset;
    bool m_bBelowZero = false;
};
