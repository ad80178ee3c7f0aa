; The installer and the uninstaller of Kinetarium. make-installer.sh gives:
;
;   VERSION    three numbers with points
;   OUTPUT     the installer's file
;   ICON       its icon
;   PICTURE    the picture beside the text of the last page
;   LISTS      the folder of install.nsh, which unpacks every file, and uninstall.nsh, which deletes the same files
;   SIZE       of all files together, in KiB
;
; It installs for one user, without administrator rights: the settings file lies beside the program, so the user needs
; write access to the folder. Silent: /S, and as the last argument /D=FOLDER without quotes. Exit codes: 0 done,
; 1 cancelled, 2 not done, 3 this Windows is too old, 4 Kinetarium is running.

; 64-bit, like the program: a 32-bit Windows itself tells the user that it cannot run it.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include FileFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kinetarium"
!define EXIT_NOT_DONE 2
!define EXIT_OLD_WINDOWS 3
!define EXIT_RUNNING 4

Name "Kinetarium"
BrandingText "Kinetarium ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
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
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Kinetarium will be removed from this folder. Your settings, Kinetarium.ini, stay."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Ends with an exit code and a message. In a section, Quit would close the window without a message.
!macro Fail CODE TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${CODE}
  Abort "${TEXT}"
!macroend

; Returns when the program in the folder $0 does not run: the file of a running program cannot be opened for writing.
!macro DefineEnsureClosed PREFIX
Function ${PREFIX}EnsureClosed
  ${DoWhile} ${FileExists} "$0\Kinetarium.exe"
    ClearErrors
    FileOpen $1 "$0\Kinetarium.exe" a
    ${IfNot} ${Errors}
      FileClose $1
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "Kinetarium is running.$\r$\n$\r$\nPlease close it, then choose Retry." /SD IDCANCEL IDRETRY again
    SetErrorLevel ${EXIT_RUNNING}
    Abort "Kinetarium is running."
    again:
  ${Loop}
FunctionEnd
!macroend
!insertmacro DefineEnsureClosed ""
!insertmacro DefineEnsureClosed "un."

Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "Kinetarium needs 64-bit Windows 10 or later." /SD IDOK
    SetErrorLevel ${EXIT_OLD_WINDOWS}
    Quit
  ${EndIf}
FunctionEnd

; Only the earlier version has the list of its files: its own uninstaller deletes them and keeps the settings, crash
; reports and shortcuts.
Function RemoveEarlierVersion
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == ""
  ${OrIfNot} ${FileExists} "$0\Uninstall.exe"
    Return
  ${EndIf}
  Call EnsureClosed
  DetailPrint "Removing the earlier version"
  ; With this last argument (no quotes) the uninstaller does not copy itself, so ExecWait waits for its end.
  ExecWait '"$0\Uninstall.exe" /S /UPDATE _?=$0' $1
  ${If} $1 != 0
    !insertmacro Fail ${EXIT_NOT_DONE} "The earlier version in $0 cannot be removed."
  ${EndIf}
  Delete "$0\Uninstall.exe"
  ${If} $0 != $INSTDIR
    ; The settings move with the program.
    ${IfNot} ${FileExists} "$INSTDIR\Kinetarium.ini"
      CreateDirectory "$INSTDIR"
      Rename "$0\Kinetarium.ini" "$INSTDIR\Kinetarium.ini"
    ${EndIf}
    RMDir "$0"
  ${EndIf}
FunctionEnd

Section "Kinetarium"
  SectionIn RO
  StrCpy $0 $INSTDIR
  Call EnsureClosed
  Call RemoveEarlierVersion

  ClearErrors
  !include "${LISTS}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    !insertmacro Fail ${EXIT_NOT_DONE} "Kinetarium cannot be written to $INSTDIR."
  ${EndIf}

  CreateShortcut "$SMPROGRAMS\Kinetarium.lnk" "$INSTDIR\Kinetarium.exe"
  ${If} ${FileExists} "$DESKTOP\Kinetarium.lnk"
    CreateShortcut "$DESKTOP\Kinetarium.lnk" "$INSTDIR\Kinetarium.exe"
  ${EndIf}

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Kinetarium"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Kinetarium.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Kinetarium"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section /o "Shortcut on the desktop"
  SetOutPath "$INSTDIR"
  CreateShortcut "$DESKTOP\Kinetarium.lnk" "$INSTDIR\Kinetarium.exe"
SectionEnd

Section "Uninstall"
  StrCpy $0 $INSTDIR
  Call un.EnsureClosed
  ; Never delete the folder recursively: it may hold files of the user.
  !include "${LISTS}/uninstall.nsh"
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/UPDATE" $2
  ${If} ${Errors}
    Delete "$INSTDIR\Kinetarium-crash-*.txt"
    Delete "$INSTDIR\Kinetarium-crash-*.dmp"
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\Kinetarium.lnk"
    Delete "$DESKTOP\Kinetarium.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
  ${EndIf}
SectionEnd
