#include "app/CKinetarium.h"
#include "app/SettingsRules.h"
#include "diagnostics/Guard.h"

#include <cstdint>

// The settings file. The panel is the truth; the file is read once and written from the panel. Nothing is kept open,
// and a file that cannot be written costs the user nothing but the memory of the settings.

namespace
{
struct CColourKeys
{
    const wchar_t* colourControl;
    const wchar_t* factorControl;
    const wchar_t* colourKey;
    const wchar_t* factorKey;
};

constexpr std::array<CColourKeys, 3> c_ColourKeys{
    {{L"Colour_1", L"Colour_1_factor", L"Atom_colour_1", L"Atom_colour_1_factor"},
     {L"Colour_2", L"Colour_2_factor", L"Atom_colour_2", L"Atom_colour_2_factor"},
     {L"Colour_3", L"Colour_3_factor", L"Atom_colour_3", L"Atom_colour_3_factor"}}};

constexpr std::size_t c_uFreeFactor = 1; // the place of the factor that speed mode has no use for
} // namespace

int CKinetarium::Settings_ReadInteger(const wchar_t* sKey, int iDefault) const
{
    return static_cast<int>(GetPrivateProfileIntW(SettingsFile::c_sSection, sKey, iDefault, m_sIniPath.c_str()));
}

CWString CKinetarium::Settings_ReadText(const wchar_t* sKey, const wchar_t* sDefault) const
{
    std::array<wchar_t, SettingsFile::c_uFactorBuffer> buffer{};
    GetPrivateProfileStringW(SettingsFile::c_sSection, sKey, sDefault, buffer.data(), SettingsFile::c_uFactorBuffer,
                             m_sIniPath.c_str());
    return CWString(buffer.data());
}

void CKinetarium::Settings_Write(const wchar_t* sKey, const CWString& sValue) const
{
    WritePrivateProfileStringW(SettingsFile::c_sSection, sKey, sValue.c_str(), m_sIniPath.c_str());
}

void CKinetarium::Settings_Load()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        CDataCtrlGroup& panel = *m_pDataCtrlGroup;
        m_WorldSize.cx = Settings_ReadInteger(L"World_width", SettingsFile::c_iDefaultWorldLength);
        panel.SetValue(GetText(L"Width"), static_cast<std::int32_t>(m_WorldSize.cx), 0);
        m_WorldSize.cy = Settings_ReadInteger(L"World_height", SettingsFile::c_iDefaultWorldLength);
        panel.SetValue(GetText(L"Height"), static_cast<std::int32_t>(m_WorldSize.cy), 0);

        SetButtonColour(L"Background_colour", static_cast<COLORREF>(Settings_ReadInteger(
                                                  L"World_background_colour", SettingsFile::c_crDefaultBackground)));
        panel.SetValue(GetText(L"Tot_atoms").c_str(),
                       static_cast<std::uint32_t>(Settings_ReadInteger(L"Tot_atoms", SettingsFile::c_iDefaultAtoms)),
                       0);

        // Radii are bytes here and in the panel: what does not fit loses its upper bits.
        m_MinRadius =
            static_cast<unsigned char>(Settings_ReadInteger(L"Atoms_min_radius", SettingsFile::c_iDefaultMinRadius));
        panel.SetValue(GetText(L"Min_radius"), m_MinRadius, 0);
        m_MaxRadius =
            static_cast<unsigned char>(Settings_ReadInteger(L"Atoms_max_radius", SettingsFile::c_iDefaultMaxRadius));
        panel.SetValue(GetText(L"Max_radius"), m_MaxRadius, 0);

        const EnumAtomColourMode eMode = GetColourModeOfSetting(static_cast<unsigned>(
            Settings_ReadInteger(L"Atoms_colour_mode", static_cast<int>(EnumAtomColourMode::Speed))));
        panel.SetValue(panel.GetCtrlIndex(GetText(L"Colour_mode")),
                       GetText(eMode == EnumAtomColourMode::Speed ? L"Speed" : L"Fixed").c_str(), 0);
        Settings_Load_Colours(eMode);
    });
}

void CKinetarium::Settings_Load_Colours(EnumAtomColourMode eMode)
{
    const std::array<CColourDefault, 3>& defaults = GetColourDefaults(eMode);
    for (std::size_t i = 0; i < c_ColourKeys.size(); ++i)
    {
        const CColourKeys& keys = c_ColourKeys[i];
        SetButtonColour(keys.colourControl, static_cast<COLORREF>(Settings_ReadInteger(
                                                keys.colourKey, static_cast<int>(defaults[i].colour))));

        const short iFactor = m_pDataCtrlGroup->GetCtrlIndex(GetText(keys.factorControl));
        if (eMode == EnumAtomColourMode::Speed && i == c_uFreeFactor)
        {
            m_pDataCtrlGroup->SetValue(iFactor, L"", 0);
            m_pDataCtrlGroup->ShowState_SetState(iFactor, EnumShowState::Greyed);
            continue;
        }
        m_pDataCtrlGroup->SetValue(iFactor, Settings_ReadText(keys.factorKey, defaults[i].factor).c_str(), 0);
    }
}

void CKinetarium::Settings_Save()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        const auto textOf = [&](const wchar_t* sKey) {
            return m_pDataCtrlGroup->GetValue_String(GetText(sKey).c_str());
        };
        Settings_Write(L"World_width", textOf(L"Width"));
        Settings_Write(L"World_height", textOf(L"Height"));
        Settings_Write(L"World_background_colour",
                       CWString(static_cast<std::uint32_t>(GetButtonColour(L"Background_colour"))));
        Settings_Write(L"Tot_atoms", textOf(L"Tot_atoms"));
        Settings_Write(L"Atoms_min_radius", textOf(L"Min_radius"));
        Settings_Write(L"Atoms_max_radius", textOf(L"Max_radius"));

        const short iList = m_pDataCtrlGroup->GetCtrlIndex(GetText(L"Colour_mode"));
        Settings_Write(L"Atoms_colour_mode", CWString(static_cast<std::int64_t>(SendMessage_Show(
                                                 m_pDataCtrlGroup->GetCtrlTabHandle(iList), CB_GETCURSEL, 0, 0))));
        for (const CColourKeys& keys : c_ColourKeys)
        {
            Settings_Write(keys.colourKey, CWString(static_cast<std::uint32_t>(GetButtonColour(keys.colourControl))));
            Settings_Write(keys.factorKey, textOf(keys.factorControl));
        }
    });
}
