#pragma once

#include "classes/core/CWString.h"

#include <cstdint>

// How the text of a factor reads.
enum class EnumFactorForm : std::uint8_t
{
    Unset,     // empty
    NotNumber, // "abc", "%", "5%%"
    Number,    // "12.34"; also "50% ", whose percent sign is not the last character
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

    // True for a number and for a percentage.
    bool HasValue() const { return m_eForm == EnumFactorForm::Number || m_eForm == EnumFactorForm::Percentage; }

    // The number, 25 for "25%". 0 without a value.
    double GetValue() const { return m_dValue; }

    // Whether the number as typed is below zero: "-1e-400" is, though its double is not; "-0" is not.
    bool IsBelowZero() const { return m_bBelowZero; }

    bool operator==(const CFactor& other) const { return m_sText == other.m_sText; }

private:
    CWString m_sText;
    double m_dValue = 0.0;
    EnumFactorForm m_eForm = EnumFactorForm::Unset;
    bool m_bBelowZero = false;
};
