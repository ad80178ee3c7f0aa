; The programs must not run while they are replaced or removed.

!macro EnsureProgramClosed UN FILE
  ${DoWhile} ${FileExists} "$Place\${FILE}"
    ; The file of a running program cannot be opened for writing.
    ClearErrors
    FileOpen $0 "$Place\${FILE}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    StrCpy $1 ${FILE} -4
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
        "$1 is running.$\r$\n$\r$\nPlease close it, then choose Retry." /SD IDCANCEL IDCANCEL`
      !insertmacro Say "${UN}" "$1 is running."
      SetErrorLevel ${EXIT_RUNNING}
      Abort "$1 is running."
    ${EndIf}
  ${Loop}
!macroend

!macro DefinePrograms UN
; Returns when neither program of the folder $Place runs; ends if the user does not want to close them.
Function ${UN}EnsureClosed
  !insertmacro EnsureProgramClosed "${UN}" "Kinetarium.exe"
  !insertmacro EnsureProgramClosed "${UN}" "kinetarium-headless.exe"
FunctionEnd
!macroend
