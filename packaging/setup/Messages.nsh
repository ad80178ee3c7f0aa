; What the installer and the uninstaller say.

; The codes with which both end; 1 is NSIS' own code for a cancelled run.
!define EXIT_NOT_DONE 2
!define EXIT_OLD_WINDOWS 3
!define EXIT_RUNNING 4
!define EXIT_SUB_FOLDER 5

!macro DefineMessages UN

; Says the line that lies on the stack: among the details of the window and, in a silent run, on the standard output, or
; on the console of the program that started this one.
Function ${UN}Say
  Exch $0
  Push $1
  DetailPrint $0
  ${If} ${Silent}
    System::Call 'kernel32::GetStdHandle(i -11) p.r1'
    ${If} $1 P= 0
    ${OrIf} $1 P= -1
      System::Call 'kernel32::AttachConsole(i -1)'
      System::Call 'kernel32::GetStdHandle(i -11) p.r1'
    ${EndIf}
    FileWrite $1 "$0$\r$\n"
    ClearErrors
  ${EndIf}
  Pop $1
  Pop $0
FunctionEnd

; Ends when another installer or uninstaller of Kinetarium is at work.
Function ${UN}EnsureAlone
  System::Call 'kernel32::CreateMutex(p 0, i 0, t "Kinetarium setup") p ?e'
  Pop $0
  ${If} $0 = 183 ; ERROR_ALREADY_EXISTS
    MessageBox MB_OK|MB_ICONSTOP "Kinetarium is being installed or removed already." /SD IDOK
    SetErrorLevel ${EXIT_RUNNING}
    Quit
  ${EndIf}
FunctionEnd

!macroend

!macro Say UN TEXT
  Push "${TEXT}"
  Call ${UN}Say
!macroend

; Ends a section with an exit code and a message. (Quit would close the window without a message.)
!macro Fail UN CODE TEXT
  !insertmacro Say "${UN}" "${TEXT}"
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${CODE}
  Abort "${TEXT}"
!macroend
