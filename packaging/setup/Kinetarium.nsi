; The installer and the uninstaller of Kinetarium. make-installer.sh gives:
;
;   VERSION    three numbers with points
;   OUTPUT     the installer's file
;   ICON       its icon
;   PICTURE    the picture beside the text of the last page
;   LISTS      the folder of unpack.nsh, which unpacks every file, and of the record of these files
;   FILES      the count of files in the record
;   SIZE       of all files together, in KiB
;
; It installs for one user, without administrator rights: the settings file lies beside the program, so the user needs
; write access to the folder. Silent: /S, and as the last argument /D=FOLDER without quotes. Exit codes: 0 done,
; 1 cancelled, 2 not done, 3 this Windows is too old, 4 Kinetarium is running, 5 done, in a sub-folder of the given one.

; 64-bit, like the program: a 32-bit Windows itself tells the user that it cannot run it.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include Win\COM.nsh
!include Messages.nsh
!include Record.nsh
!include Programs.nsh
!include Shortcuts.nsh
!include Staging.nsh
!include Entry.nsh
!include Exchange.nsh

Name "Kinetarium"
BrandingText "Kinetarium ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
AllowSkipFiles off
InstallDir "$LOCALAPPDATA\Programs\Kinetarium"
; An update uses the folder of the earlier version.
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Kinetarium"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs Kinetarium"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "Kinetarium"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\Kinetarium.exe"
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveDirectoryPage
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Kinetarium will be removed from this folder. Your settings, Kinetarium.ini, crash \
reports and your own files stay."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
; After the pages, of whose controls it uses one.
!include Folder.nsh

!insertmacro DefineMessages ""
!insertmacro DefineMessages "un."
!insertmacro DefineRecord ""
!insertmacro DefineRecord "un."
!insertmacro DefinePrograms ""
!insertmacro DefinePrograms "un."
!insertmacro DefineShortcuts ""
!insertmacro DefineShortcuts "un."
!insertmacro DefineStaging ""
!insertmacro DefineStaging "un."

Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "Kinetarium needs 64-bit Windows 10 or later." /SD IDOK
    SetErrorLevel ${EXIT_OLD_WINDOWS}
    Quit
  ${EndIf}
  Call EnsureAlone
  ReadRegStr $EarlierPlace HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $EarlierName HKCU "${UNINSTALL_KEY}" "DisplayName"
FunctionEnd

Function un.onInit
  Call un.EnsureAlone
FunctionEnd

; The folder of the earlier version, if the new one was installed into another. What cannot be removed stays: the list
; names the new version already.
Function RemoveFromEarlierPlace
  DetailPrint "Removing the earlier version from $EarlierPlace"
  StrCpy $Place $EarlierPlace
  StrCpy $Staging "$EarlierPlace\Kinetarium-update"
  Call ClearStaging
  ${If} ${FileExists} "$Place\${RECORD}"
    Call RemoveRecorded
    ${If} $Failed == ""
      Call RemoveRecord
    ${Else}
      !insertmacro Say "" "The earlier version's file $Failed is in use and stays."
    ${EndIf}
  ${ElseIf} ${FileExists} "$Place\Uninstall.exe"
    ; Version 2.0.0 had no record: only its own uninstaller knows its files. With this last argument (no quotes) it does
    ; not copy itself, so ExecWait waits for its end.
    ExecWait '"$Place\Uninstall.exe" /S /UPDATE _?=$Place' $0
    ${If} $0 = 0
      Delete "$Place\Uninstall.exe"
    ${EndIf}
  ${EndIf}
  RMDir "$Place"
FunctionEnd

Var SettingsMoved ; 1 if the new folder has a copy of the settings of the earlier one

; The settings move with the program.
Function CopySettings
  StrCpy $SettingsMoved 0
  ${If} ${FileExists} "$EarlierPlace\Kinetarium.ini"
  ${AndIfNot} ${FileExists} "$INSTDIR\Kinetarium.ini"
    System::Call 'kernel32::CopyFile(t "$EarlierPlace\Kinetarium.ini", t "$Staging\copy.tmp", i 0) i.r0'
    ${If} $0 <> 0
      !insertmacro Move "$Staging\copy.tmp" "$INSTDIR\Kinetarium.ini"
    ${EndIf}
    StrCpy $SettingsMoved $0
  ${EndIf}
FunctionEnd

Section "Kinetarium"
  SectionIn RO
  ${If} ${Silent}
    Call CheckGivenFolder
    ${If} $Failed != ""
      !insertmacro Fail "" ${EXIT_NOT_DONE} "$Failed is a file, not a folder."
    ${EndIf}
    Call ChooseFolder
    ${If} $Failed != ""
      !insertmacro Fail "" ${EXIT_NOT_DONE} "${TEXT_BOTH_IN_USE}"
    ${EndIf}
  ${EndIf}
  StrCpy $Staging "$INSTDIR\Kinetarium-update"
  StrCpy $MadeFolder 0
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    StrCpy $MadeFolder 1
  ${EndIf}
  StrCpy $Listed 0
  ${If} $EarlierPlace == $INSTDIR
    StrCpy $Listed 1
  ${ElseIf} $EarlierPlace != ""
    StrCpy $Place $EarlierPlace
    Call EnsureClosed
  ${EndIf}
  StrCpy $Place $INSTDIR
  Call EnsureClosed

  Call Unpack
  Call CheckUnpacked
  Call CopyEarlierFiles
  Call WriteRecordOfBoth
  Call Exchange
  ${If} $EarlierPlace == ""
  ${OrIf} $Listed = 1
    !insertmacro WriteEntry "Kinetarium (installation not finished)"
  ${Else}
    Call CopySettings
    !insertmacro WriteEntry "Kinetarium"
  ${EndIf}
  !insertmacro MakeShortcut "$SMPROGRAMS\Kinetarium.lnk"
  ${If} ${FileExists} "$DESKTOP\Kinetarium.lnk"
    !insertmacro MakeShortcut "$DESKTOP\Kinetarium.lnk"
  ${EndIf}
  Call RemoveObsolete
  Call ClearStaging
  !insertmacro NameEntry "Kinetarium"
  ${If} $EarlierPlace != ""
  ${AndIf} $Listed = 0
    ${If} $SettingsMoved = 1
      Delete "$EarlierPlace\Kinetarium.ini"
    ${EndIf}
    Call RemoveFromEarlierPlace
  ${EndIf}
  ${If} $GivenPlace != ""
    !insertmacro Say "" "The folder $GivenPlace holds other files: Kinetarium is in its sub-folder $INSTDIR."
    SetErrorLevel ${EXIT_SUB_FOLDER}
  ${EndIf}
SectionEnd

Section /o "Shortcut on the desktop"
  SetOutPath "$INSTDIR"
  !insertmacro MakeShortcut "$DESKTOP\Kinetarium.lnk"
SectionEnd

Section "Uninstall"
  StrCpy $Place $INSTDIR
  StrCpy $Staging "$INSTDIR\Kinetarium-update"
  ${IfNot} ${FileExists} "$Place\${RECORD}"
    !insertmacro Fail "un." ${EXIT_NOT_DONE} \
      "The list of the installed files, $Place\${RECORD}, is missing. Install Kinetarium again, then remove it."
  ${EndIf}
  Call un.EnsureClosed
  !insertmacro ForEach Files "$Place\${RECORD}"
    ${If} $Path != "Uninstall.exe"
      Call un.IsUnchanged
      Pop $0
      ${If} $0 = 1
        Call un.CanReplace
        Pop $0
        ${If} $0 = 0
          !insertmacro Fail "un." ${EXIT_NOT_DONE} "$Place\$Path is in use or cannot be removed."
        ${EndIf}
      ${EndIf}
    ${EndIf}
  !insertmacro EndForEach
  ReadRegStr $EarlierPlace HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $EarlierPlace == $INSTDIR
    !insertmacro NameEntry "Kinetarium (removal not finished)"
  ${EndIf}
  Call un.ClearStaging
  Call un.RemoveRecorded
  ${If} $Failed != ""
    !insertmacro Fail "un." ${EXIT_NOT_DONE} "$Failed cannot be removed."
  ${EndIf}
  !insertmacro DeleteShortcut "$SMPROGRAMS\Kinetarium.lnk"
  !insertmacro DeleteShortcut "$DESKTOP\Kinetarium.lnk"
  ${If} $EarlierPlace == $INSTDIR
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
  Call un.RemoveRecord
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
SectionEnd
