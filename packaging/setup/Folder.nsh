; Where Kinetarium is installed. A folder that holds other files gets a sub-folder, so that nothing of the user's is ever
; overwritten.

Var GivenPlace ; the folder that the user has chosen, if Kinetarium goes into its sub-folder; otherwise empty

; Replaces the path of a folder on the stack by 1 if it is missing, empty or ours, or by 0. Ours are also the files that
; the program itself writes: they stay when it is uninstalled.
Function IsFreeOrOurs
  Exch $0
  ReadINIStr $1 "$0\${RECORD}" "Kinetarium" "Version"
  ClearErrors
  ${If} $1 != ""
    StrCpy $0 1
  ${ElseIf} $0 == $EarlierPlace
  ${AndIf} ${FileExists} "$0\Uninstall.exe"
    StrCpy $0 1
  ${Else}
    FindFirst $1 $2 "$0\*"
    StrCpy $0 1
    ${DoUntil} $2 == ""
      StrCpy $3 $2 17
      StrLen $4 $2
      ${If} $2 == "."
      ${OrIf} $2 == ".."
      ${OrIf} $2 == "Kinetarium.ini"
      ${OrIf} $2 == "Kinetarium-update"
        ; the folder itself, the settings, or what an installer left that was ended
      ${ElseIf} $3 == "Kinetarium-crash-"
      ${AndIf} $4 = 36
        ; Kinetarium-crash-YYYYMMDD-HHMMSS.txt
      ${Else}
        StrCpy $0 0
      ${EndIf}
      FindNext $1 $2
    ${Loop}
    FindClose $1
    ClearErrors
  ${EndIf}
  Exch $0
FunctionEnd

; Makes $INSTDIR its own sub-folder if it is neither empty nor ours. $Failed tells if that one is not either.
Function ChooseFolder
  StrCpy $GivenPlace ""
  StrCpy $Failed ""
  Push $INSTDIR
  Call IsFreeOrOurs
  Pop $0
  ${If} $0 = 1
    Return
  ${EndIf}
  StrCpy $GivenPlace $INSTDIR
  StrCpy $INSTDIR "$INSTDIR\Kinetarium"
  Push $INSTDIR
  Call IsFreeOrOurs
  Pop $0
  ${If} $0 <> 1
    StrCpy $Failed $INSTDIR
  ${EndIf}
FunctionEnd

; Sets $Failed to the argument of /D= if it names a file: NSIS would use the default folder instead and say nothing.
Function CheckGivenFolder
  StrCpy $Failed ""
  System::Call 'kernel32::GetCommandLine() t.r0'
  StrLen $1 $0
  ${DoWhile} $1 > 0
    StrCpy $2 $0 4 $1
    ${If} $2 == " /D="
      IntOp $1 $1 + 4
      StrCpy $Failed $0 "" $1
      ${ExitDo}
    ${EndIf}
    IntOp $1 $1 - 1
  ${Loop}
  ${IfNot} ${FileExists} $Failed
  ${OrIf} ${FileExists} "$Failed\*.*"
    StrCpy $Failed ""
  ${EndIf}
FunctionEnd

!define TEXT_BOTH_IN_USE "The folder $GivenPlace holds other files, and so does its sub-folder Kinetarium."

; The user leaves the page on which the folder is chosen.
Function LeaveDirectoryPage
  Call ChooseFolder
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT_BOTH_IN_USE}$\r$\n$\r$\nPlease choose another folder."
  ${ElseIf} $GivenPlace == ""
    Return
  ${Else}
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
      "The folder $GivenPlace holds other files.$\r$\n$\r$\nKinetarium will be installed into its sub-folder $INSTDIR." \
      IDOK yes
  ${EndIf}
  StrCpy $INSTDIR $GivenPlace
  Abort ; stays on the page
  yes:
  ; The page takes the folder from its entry once more.
  SendMessage $mui.DirectoryPage.Directory ${WM_SETTEXT} 0 "STR:$INSTDIR"
FunctionEnd
