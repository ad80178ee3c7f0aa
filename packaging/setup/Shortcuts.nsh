; The shortcuts in the start menu and on the desktop. A user may have one of the same name that leads elsewhere.

Var EarlierPlace ; the folder of the version that the system lists; empty if it lists none

!macro DefineShortcuts UN
; Replaces the path of a shortcut on the stack by the file that it leads to, or by nothing if it cannot be read.
Function ${UN}TargetOf
  Exch $0
  Push $1
  Push $2
  Push $3
  StrCpy $3 ""
  !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IShellLink} r1 ""
  ${If} $1 P<> 0
    ${IUnknown::QueryInterface} $1 '("${IID_IPersistFile}",.r2)'
    ${If} $2 P<> 0
      ${IPersistFile::Load} $2 '(r0,0)'
      ${IShellLink::GetPath} $1 '(.r3,${NSIS_MAX_STRLEN},0,4)' ; 4: as it is written there
      ${IUnknown::Release} $2 ""
    ${EndIf}
    ${IUnknown::Release} $1 ""
  ${EndIf}
  StrCpy $0 $3
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd
!macroend

; Makes a shortcut to the installed program. One of the same name that leads to another program stays.
!macro MakeShortcut FILE
  Push "${FILE}"
  Call TargetOf
  Pop $0
  ${IfNot} ${FileExists} "${FILE}"
  ${OrIf} $0 == "$INSTDIR\Kinetarium.exe"
  ${OrIf} $0 == "$EarlierPlace\Kinetarium.exe"
    CreateShortcut "${FILE}" "$INSTDIR\Kinetarium.exe"
  ${EndIf}
!macroend

; Deletes a shortcut that leads to the installed program.
!macro DeleteShortcut FILE
  Push "${FILE}"
  Call un.TargetOf
  Pop $0
  ${If} $0 == "$INSTDIR\Kinetarium.exe"
    Delete "${FILE}"
  ${EndIf}
!macroend
