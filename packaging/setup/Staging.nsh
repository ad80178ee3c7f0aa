; The folder beside the installed files in which an update is made ready. It lies on the same volume, so that moving a file
; out of it replaces the earlier one in a single step.
;
;   installed-files.ini   the record of the new version
;   new\                  its files
;   old\                  copies of the files that they replace
;
; A run that was ended leaves it behind. The next run of the installer or the uninstaller clears it.

Var Staging

!macro DefineStaging UN

; Deletes the copy of $Path. If the copy has neither a recorded content nor that of the file in its place, the user has
; changed the file: then it goes beside the new one, under a name of its own.
Function ${UN}ClearCopy
  Push "$Staging\old\$Path"
  Call ${UN}HashOf
  Pop $1
  Push $1
  Call ${UN}IsRecorded
  Pop $0
  ${If} $0 = 1
    Delete "$Staging\old\$Path"
    Return
  ${EndIf}
  Push "$Place\$Path"
  Call ${UN}HashOf
  Pop $0
  ${If} $0 == $1
    Delete "$Staging\old\$Path"
    Return
  ${EndIf}
  StrCpy $0 "$Place\$Path.kept"
  StrCpy $1 1
  ${DoWhile} ${FileExists} $0
    IntOp $1 $1 + 1
    StrCpy $0 "$Place\$Path.kept$1"
  ${Loop}
  Rename "$Staging\old\$Path" $0
  ClearErrors
FunctionEnd

Function ${UN}ClearStaging
  SetOutPath "$TEMP" ; the current folder of a process cannot be deleted
  !insertmacro ForEach Files "$Staging\${RECORD}"
    Delete "$Staging\new\$Path"
    ${If} ${FileExists} "$Staging\old\$Path"
      Call ${UN}ClearCopy
    ${EndIf}
  !insertmacro EndForEach
  !insertmacro ForEach Folders "$Staging\${RECORD}"
    RMDir "$Staging\new\$Path"
    RMDir "$Staging\old\$Path"
  !insertmacro EndForEach
  RMDir "$Staging\new"
  Delete "$Staging\old\${RECORD}"
  RMDir "$Staging\old"
  Delete "$Staging\copy.tmp"
  Delete "$Staging\both.ini"
  FlushINI "$Staging\${RECORD}" ; so that nothing of it is read again after a new one is unpacked
  Delete "$Staging\${RECORD}"
  RMDir "$Staging"
  ClearErrors
FunctionEnd

!macroend
