; The entry in the list of installed programs. While files are being replaced or removed, its name says so: whatever ends
; the work, the list tells the truth.

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kinetarium"

!macro NameEntry NAME
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
!macroend

!macro WriteEntry NAME
  !insertmacro NameEntry "Kinetarium (installation not finished)"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Kinetarium.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Kinetarium"
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  !insertmacro NameEntry "${NAME}"
!macroend
