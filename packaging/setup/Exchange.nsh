; Unpacks beside, checks, then exchanges.
;
; Everything that needs room or can be refused comes first and changes nothing that is installed. The exchange only moves
; files within the volume, each in one step, Kinetarium.exe last. Before it the record in the folder gets the files of
; both versions: if the run is ended in between, the next installer or uninstaller knows every file that may lie there.

Var MadeFolder  ; 1 if the folder did not exist
Var EarlierName ; under which the system lists the earlier version
Var Listed      ; 1 if the system lists the version in $INSTDIR

; Ends without any change to what is installed.
!macro FailUnchanged TEXT
  Call ClearStaging
  ${If} $MadeFolder = 1
    RMDir "$INSTDIR"
  ${EndIf}
  !insertmacro Fail "" ${EXIT_NOT_DONE} "${TEXT}"
!macroend

!define TEXT_NOT_WRITTEN "Kinetarium cannot be written to $INSTDIR."

Function Unpack
  DetailPrint "Unpacking"
  Call ClearStaging
  ClearErrors
  SetOutPath "$Staging"
  File "${LISTS}/${RECORD}"
  !include "${LISTS}/unpack.nsh"
  WriteUninstaller "$Staging\new\Uninstall.exe"
  ${IfNot} ${Errors}
    Push "$Staging\new\Uninstall.exe"
    Call HashOf
    Pop $0
    WriteINIStr "$Staging\${RECORD}" "SHA-256" "Uninstall.exe" $0
  ${EndIf}
  ${If} ${Errors}
    !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
  ${EndIf}
FunctionEnd

Function CheckUnpacked
  DetailPrint "Checking"
  StrCpy $2 0
  !insertmacro ForEach Files "$Staging\${RECORD}"
    IntOp $2 $2 + 1
    Push "$Staging\new\$Path"
    Call HashOf
    Pop $0
    ReadINIStr $1 "$Staging\${RECORD}" "SHA-256" $Path
    ${If} $0 == ""
    ${OrIf} $0 != $1
      !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
    ${EndIf}
  !insertmacro EndForEach
  ${If} $2 <> ${FILES}
    !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
  ${EndIf}
FunctionEnd

; Copies the files that will be replaced, and makes sure that each of them can be.
Function CopyEarlierFiles
  ClearErrors
  CreateDirectory "$Staging\old"
  !insertmacro ForEach Folders "$Staging\${RECORD}"
    CreateDirectory "$Staging\old\$Path"
  !insertmacro EndForEach
  ${If} ${FileExists} "$Place\${RECORD}"
    System::Call 'kernel32::CopyFile(t "$Place\${RECORD}", t "$Staging\old\${RECORD}", i 0) i.r0'
    ${If} $0 = 0
      !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
    ${EndIf}
  ${EndIf}
  !insertmacro ForEach Files "$Staging\${RECORD}"
    ${If} ${FileExists} "$Place\$Path"
    ${AndIfNot} ${FileExists} "$Place\$Path\*.*"
      ; In two steps: a copy under its own name is a whole one.
      System::Call 'kernel32::CopyFile(t "$Place\$Path", t "$Staging\copy.tmp", i 0) i.r0'
      ${If} $0 <> 0
        System::Call 'kernel32::MoveFileEx(t "$Staging\copy.tmp", t "$Staging\old\$Path", i 1) i.r0'
      ${EndIf}
      ${If} $0 <> 0
        Call CanReplace
        Pop $0
      ${EndIf}
      ${If} $0 = 0
        !insertmacro FailUnchanged "$Place\$Path is in use or cannot be replaced."
      ${EndIf}
    ${EndIf}
  !insertmacro EndForEach
FunctionEnd

; Makes the record of both versions. Without an earlier record (version 2.0.0 had none) what lies in the folder that the
; system lists counts as installed.
Function WriteRecordOfBoth
  System::Call 'kernel32::CopyFile(t "$Staging\${RECORD}", t "$Staging\both.ini", i 0) i.r0'
  ${If} $0 = 0
    !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
  ${EndIf}
  ClearErrors
  !insertmacro ForEach Files "$Staging\${RECORD}"
    ReadINIStr $1 "$Place\${RECORD}" "SHA-256" $Path
    ${If} $1 == ""
    ${AndIf} $Listed = 1
    ${AndIfNot} ${FileExists} "$Place\${RECORD}"
      Push "$Place\$Path"
      Call HashOf
      Pop $1
    ${EndIf}
    ClearErrors
    ${If} $1 != ""
      ReadINIStr $0 "$Staging\${RECORD}" "SHA-256" $Path
      WriteINIStr "$Staging\both.ini" "SHA-256" $Path "$0 $1"
    ${EndIf}
  !insertmacro EndForEach
  StrCpy $2 $Index
  !insertmacro ForEach Files "$Place\${RECORD}"
    ReadINIStr $0 "$Staging\${RECORD}" "SHA-256" $Path
    ClearErrors
    ${If} $0 == ""
      ReadINIStr $1 "$Place\${RECORD}" "SHA-256" $Path
      WriteINIStr "$Staging\both.ini" "Files" $2 $Path
      WriteINIStr "$Staging\both.ini" "SHA-256" $Path $1
      IntOp $2 $2 + 1
    ${EndIf}
  !insertmacro EndForEach
  StrCpy $2 0
  !insertmacro ForEach Folders "$Staging\${RECORD}"
    IntOp $2 $2 + 1
  !insertmacro EndForEach
  !insertmacro ForEach Folders "$Place\${RECORD}"
    WriteINIStr "$Staging\both.ini" "Folders" $2 $Path
    IntOp $2 $2 + 1
  !insertmacro EndForEach
FunctionEnd

; Moves a file over another in one step, written through to the disk; $0 is 0 if the system refuses.
!macro Move FROM TO
  System::Call 'kernel32::MoveFileEx(t "${FROM}", t "${TO}", i 9) i.r0'
!macroend

; Puts everything back that the exchange has moved so far.
Function UndoExchange
  !insertmacro ForEach Files "$Staging\${RECORD}"
    ${If} ${FileExists} "$Staging\old\$Path"
      !insertmacro Move "$Staging\old\$Path" "$Place\$Path"
    ${ElseIfNot} ${FileExists} "$Staging\new\$Path"
      Delete "$Place\$Path"
    ${EndIf}
  !insertmacro EndForEach
  !insertmacro ForEach Folders "$Staging\${RECORD}"
    RMDir "$Place\$Path"
  !insertmacro EndForEach
  ${If} ${FileExists} "$Staging\old\${RECORD}"
    !insertmacro Move "$Staging\old\${RECORD}" "$Place\${RECORD}"
  ${Else}
    Delete "$Place\${RECORD}"
  ${EndIf}
  ${If} $Listed = 1
    !insertmacro NameEntry $EarlierName
  ${ElseIf} $EarlierPlace == ""
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
FunctionEnd

Function Exchange
  DetailPrint "Exchanging the files"
  !insertmacro Move "$Staging\both.ini" "$Place\${RECORD}"
  ${If} $0 = 0
    !insertmacro FailUnchanged "${TEXT_NOT_WRITTEN}"
  ${EndIf}
  ${If} $Listed = 1
    !insertmacro NameEntry "Kinetarium (update not finished)"
  ${EndIf}
  !insertmacro ForEach Folders "$Staging\${RECORD}"
    CreateDirectory "$Place\$Path"
  !insertmacro EndForEach
  !insertmacro ForEach Files "$Staging\${RECORD}"
    !insertmacro Move "$Staging\new\$Path" "$Place\$Path"
    ${If} $0 = 0
      StrCpy $Failed "$Place\$Path"
      Call UndoExchange
      !insertmacro FailUnchanged "$Failed cannot be written."
    ${EndIf}
    ${If} $Path == "Uninstall.exe"
    ${AndIf} $EarlierPlace == ""
      ; From now on the list offers to remove what is there.
      !insertmacro WriteEntry "Kinetarium (installation not finished)"
    ${EndIf}
  !insertmacro EndForEach
FunctionEnd

; Removes what only the earlier version had. A file that is in use stays, and stays recorded.
Function RemoveObsolete
  StrCpy $Failed ""
  !insertmacro ForEach Files "$Place\${RECORD}"
    ReadINIStr $0 "$Staging\${RECORD}" "SHA-256" $Path
    ${If} $0 == ""
      Call IsUnchanged
      Pop $0
      ${If} $0 = 1
        ClearErrors
        Delete "$Place\$Path"
        ${If} ${Errors}
          StrCpy $Failed "$Place\$Path"
        ${EndIf}
      ${EndIf}
    ${EndIf}
  !insertmacro EndForEach
  !insertmacro ForEach Folders "$Place\${RECORD}"
    RMDir "$Place\$Path"
  !insertmacro EndForEach
  ; The copies go while the record still knows both versions.
  !insertmacro ForEach Files "$Staging\${RECORD}"
    ${If} ${FileExists} "$Staging\old\$Path"
      Call ClearCopy
    ${EndIf}
  !insertmacro EndForEach
  ${If} $Failed == ""
    System::Call 'kernel32::CopyFile(t "$Staging\${RECORD}", t "$Staging\both.ini", i 0) i.r0'
    ${If} $0 <> 0
      !insertmacro Move "$Staging\both.ini" "$Place\${RECORD}"
    ${EndIf}
  ${EndIf}
FunctionEnd
