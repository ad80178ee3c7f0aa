; The record of what is installed: a text file with the path of each file and the SHA-256 of its content. The content tells
; whether a file is still ours. Its size and time do not: a user can change a letter and keep the size, and a copy or
; another file system can change the time of a file that nobody has touched.
;
;   [Kinetarium]  Version=2.0.0
;   [Files]       0=Uninstall.exe, 1=README.txt, ...   in the order in which they are written
;   [Folders]     0=guide\images, 1=guide, ...         innermost first
;   [SHA-256]     README.txt=9f86d0...                 during an update that of each version, with a blank between
;
; The functions work on the folder $Place, and on the file $Path below it.

!define RECORD "installed-files.ini"

Var Place
Var Path
Var Index
Var Failed ; the path of the file that stands in the way; empty if none does

; The lines between the two run once for each file or folder (KIND is Files or Folders) of a record, with its $Path.
!macro ForEach KIND RECORD
  StrCpy $Index -1
  ${Do}
    IntOp $Index $Index + 1
    ReadINIStr $Path "${RECORD}" "${KIND}" $Index
    ${If} $Path == ""
      ClearErrors
      ${ExitDo}
    ${EndIf}
!macroend
!macro EndForEach
  ${Loop}
!macroend

!macro DefineRecord UN

; Replaces the path on the stack by the SHA-256 of that file, or by nothing if it cannot be read.
Function ${UN}HashOf
  Exch $0
  Push $1
  Push $2
  Push $3
  Push $4
  Push $5
  System::Call 'kernel32::CreateFile(t r0, i 0x80000000, i 7, p 0, i 3, i 0, p 0) p.r1'
  StrCpy $0 ""
  ${If} $1 P<> -1
    System::Call 'kernel32::GetFileSizeEx(p r1, *l .r2)'
    System::Call 'kernel32::CreateFileMapping(p r1, p 0, i 2, i 0, i 0, p 0) p.r3'
    System::Call 'kernel32::MapViewOfFile(p r3, i 4, i 0, i 0, p 0) p.r4'
    System::Alloc 32
    Pop $5
    ; 0x41 is the system's own SHA-256; 0x4000000C asks for hexadecimal digits without a line end.
    System::Call 'bcrypt::BCryptHash(p 0x41, p 0, i 0, p r4, i r2, p r5, i 32) i.s'
    System::Call 'crypt32::CryptBinaryToString(p r5, i 32, i 0x4000000C, t .r0, *i 100)'
    Exch $1
    ${If} $1 <> 0
      StrCpy $0 ""
    ${EndIf}
    Pop $1
    System::Free $5
    System::Call 'kernel32::UnmapViewOfFile(p r4)'
    System::Call 'kernel32::CloseHandle(p r3)'
    System::Call 'kernel32::CloseHandle(p r1)'
  ${EndIf}
  Pop $5
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Replaces a hash on the stack by 1 if the record in $Place has it for $Path, or by 0.
Function ${UN}IsRecorded
  Exch $0
  Push $1
  Push $2
  ReadINIStr $1 "$Place\${RECORD}" "SHA-256" $Path
  ClearErrors
  ${DoUntil} $1 == ""
    StrCpy $2 $1 64
    ${If} $2 == $0
      ${ExitDo}
    ${EndIf}
    StrCpy $1 $1 "" 65
  ${Loop}
  StrCpy $0 0
  ${If} $1 != ""
    StrCpy $0 1
  ${EndIf}
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Pushes 1 if the file has a recorded content, or 0.
Function ${UN}IsUnchanged
  Push "$Place\$Path"
  Call ${UN}HashOf
  Call ${UN}IsRecorded
FunctionEnd

; Pushes 1 if the file can be replaced or deleted, or 0 if another program has it open or the user has no right to it.
Function ${UN}CanReplace
  ; 0x40010000 asks for the rights to write and to delete; 7 shares every right.
  System::Call 'kernel32::CreateFile(t "$Place\$Path", i 0x40010000, i 7, p 0, i 3, i 0, p 0) p.r0'
  ${If} $0 P= -1
    Push 0
  ${Else}
    System::Call 'kernel32::CloseHandle(p r0)'
    Push 1
  ${EndIf}
FunctionEnd

; Deletes every file of the record that nobody has changed, but the uninstaller, and the folders that are empty then. The
; folder may hold files of the user: nothing is deleted by a pattern.
Function ${UN}RemoveRecorded
  StrCpy $Failed ""
  !insertmacro ForEach Files "$Place\${RECORD}"
    ${If} $Path != "Uninstall.exe"
      Call ${UN}IsUnchanged
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
FunctionEnd

; Deletes what remains after RemoveRecorded, the record last: a folder in which the uninstaller lies without it would be
; foreign to the next installer.
Function ${UN}RemoveRecord
  ClearErrors
  Delete "$Place\Uninstall.exe"
  ${IfNot} ${Errors}
    Delete "$Place\${RECORD}"
  ${EndIf}
FunctionEnd

!macroend
