#include "app/CKinetarium.h"
#include "classes/windows/system/CPathTurn.h"
#include "diagnostics/Guard.h"
#include "settings/ISettingsStore.h"
#include "settings/SettingsFile.h"

#include <cstdint>

// The settings in the panel and in the file. The panel holds the valid ones: the file is read once, and written from
// the panel. It is never kept open. If it cannot be written, the program runs on and only forgets the settings.

namespace
{
// Reads the settings file by the functions of the system.
class CProfileStore final : public ISettingsStore
{
public:
    explicit CProfileStore(const CWString& sPath) : m_sPath(sPath) {}

    std::int32_t ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const override
    {
        return static_cast<std::int32_t>(
            GetPrivateProfileIntW(SettingsFile::c_sSection, sKey, defaultValue, m_sPath.c_str()));
    }

    CWString ReadText(const wchar_t* sKey, const wchar_t* sDefault) const override
    {
        std::array<wchar_t, SettingsFile::c_uMostTextCharacters + 1> buffer{};
        GetPrivateProfileStringW(SettingsFile::c_sSection, sKey, sDefault, buffer.data(),
                                 static_cast<DWORD>(buffer.size()), m_sPath.c_str());
        return CWString(buffer.data());
    }

private:
    const CWString& m_sPath;
};
} // namespace

int CKinetarium::Settings_ReadInteger(const wchar_t* sKey, int iDefault) const
{
    return CProfileStore(m_sIniPath).ReadNumber(sKey, iDefault);
}

void CKinetarium::Settings_Write(const wchar_t* sKey, const CWString& sValue) const
{
    WritePrivateProfileStringW(SettingsFile::c_sSection, sKey, sValue.c_str(), m_sIniPath.c_str());
}

void CKinetarium::Settings_Load()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        // Settings of two programs would mix if another one were writing. After a wait in vain the file is read as it
        // is.
        const CPathTurn turn(m_sIniPath, SettingsFile::c_uPatience);
        const CProfileStore store(m_sIniPath);
        CSettings settings = Settings_GetKept();
        for (const CSettingRow& row : c_SettingRows)
        {
            ReadSetting(store, row, settings);
            Settings_Keep(settings);
            Panel_Show(row, settings);
            if (!row.IsUsedIn(settings.eMode))
            {
                m_pDataCtrlGroup->ShowState_SetState(Panel_GetIndex(row), EnumShowState::Greyed);
            }
        }
    });
}

void CKinetarium::Settings_Save()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        const CPathTurn turn(m_sIniPath, SettingsFile::c_uPatience);
        if (!turn.MayWrite())
        {
            return;
        }
        for (const CSettingRow& row : c_SettingRows)
        {
            Settings_Write(row.sFileKey, Panel_GetText(row));
        }
    });
}

// The settings that are kept outside the panel: the view and the crash note use them.
CSettings CKinetarium::Settings_GetKept() const
{
    CSettings settings;
    settings.world = m_WorldSize;
    settings.minRadius = m_MinRadius;
    settings.maxRadius = m_MaxRadius;
    return settings;
}

void CKinetarium::Settings_Keep(const CSettings& settings)
{
    m_WorldSize = settings.world;
    m_MinRadius = settings.minRadius;
    m_MaxRadius = settings.maxRadius;
}

short CKinetarium::Panel_GetIndex(const CSettingRow& row) const
{
    return m_pDataCtrlGroup->GetCtrlIndex(GetText(row.sPanelKey));
}

// The index of the selected item of a list; -1 for none.
LRESULT CKinetarium::Panel_GetSelection(const CSettingRow& row)
{
    return SendMessage_Show(m_pDataCtrlGroup->GetCtrlTabHandle(Panel_GetIndex(row)), CB_GETCURSEL, 0, 0);
}

void CKinetarium::Panel_Show(const CSettingRow& row, const CSettings& settings)
{
    CDataCtrlGroup& panel = *m_pDataCtrlGroup;
    const std::int64_t number = GetNumber(row, settings);
    switch (row.eType)
    {
    case EnumSettingType::Length:
        panel.SetValue(GetText(row.sPanelKey), static_cast<std::int32_t>(number), 0);
        break;
    case EnumSettingType::Count:
        panel.SetValue(GetText(row.sPanelKey), static_cast<std::uint32_t>(number), 0);
        break;
    case EnumSettingType::Radius:
        panel.SetValue(GetText(row.sPanelKey), static_cast<std::uint8_t>(number), 0);
        break;
    case EnumSettingType::ColourMode:
        panel.SetValue(Panel_GetIndex(row),
                       GetText(settings.eMode == EnumAtomColourMode::Speed ? L"Speed" : L"Fixed").c_str(), 0);
        break;
    case EnumSettingType::Colour:
        SetButtonColour(row.sPanelKey, static_cast<COLORREF>(number));
        break;
    case EnumSettingType::Factor:
        panel.SetValue(Panel_GetIndex(row), GetFactorText(row, settings).c_str(), 0);
        break;
    }
}

// Limits numbers to their range. Takes a colour as the button holds it: the file may have given it any number.
void CKinetarium::Panel_Read(const CSettingRow& row, CSettings& settings)
{
    const CWString sLabel = GetText(row.sPanelKey);
    switch (row.eType)
    {
    case EnumSettingType::Length:
    case EnumSettingType::Count:
        SetNumber(row, settings, ClampNumber(row, m_pDataCtrlGroup->GetValue_Int32(sLabel)));
        break;
    case EnumSettingType::Radius:
        SetNumber(row, settings, ClampNumber(row, m_pDataCtrlGroup->GetValue_Uint8(sLabel)));
        break;
    case EnumSettingType::ColourMode:
        settings.eMode = ColourModeFromIndex(static_cast<int>(Panel_GetSelection(row)));
        break;
    case EnumSettingType::Colour:
        SetNumber(row, settings, static_cast<std::int32_t>(GetButtonColour(row.sPanelKey)));
        break;
    case EnumSettingType::Factor:
        SetFactorText(row, settings, m_pDataCtrlGroup->GetValue_String(sLabel));
        break;
    }
}

// The text that the file holds for the row.
CWString CKinetarium::Panel_GetText(const CSettingRow& row)
{
    switch (row.eType)
    {
    case EnumSettingType::ColourMode:
        return CWString(static_cast<std::int64_t>(Panel_GetSelection(row)));
    case EnumSettingType::Colour:
        return CWString(static_cast<std::uint32_t>(GetButtonColour(row.sPanelKey)));
    case EnumSettingType::Length:
    case EnumSettingType::Count:
    case EnumSettingType::Radius:
    case EnumSettingType::Factor:
        break;
    }
    return m_pDataCtrlGroup->GetValue_String(GetText(row.sPanelKey));
}
