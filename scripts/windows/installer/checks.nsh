; What keeps the installer or the uninstaller from its work, said in words and by the exit code. A silent one only exits.

!macro Refuse code words
  MessageBox MB_OK|MB_ICONSTOP "${words}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend

!macro Checks un
  ; For the folder on the stack: a program that runs, or a library in one, cannot be opened for writing.
  Function ${un}RequireUnused
    Exch $R0
    Push $R1
    Push $R2
    again:
    StrCpy $R2 ""
    !insertmacro NoteIfUsed "QorLumarin.dll"
    !insertmacro NoteIfUsed "QorCreatePdf.dll"
    !insertmacro NoteIfUsed "lumarin-host.exe"
    ${If} $R2 != ""
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "A program still uses $R2 in $\"$R0$\". Close it, then press Retry.$\r$\n$\r$\n\
        After Cancel everything stays as it is." /SD IDCANCEL IDRETRY again
      SetErrorLevel ${IN_USE}
      Quit
    ${EndIf}
    Pop $R2
    Pop $R1
    Pop $R0
  FunctionEnd

  Function ${un}RequireAdministrator
    Push $R0
    UserInfo::GetAccountType
    Pop $R0
    ${If} $R0 != "Admin"
      !insertmacro Refuse ${NO_RIGHTS} "What is there for all users takes an administrator's rights. \
        Start it with $\"Run as administrator$\"."
    ${EndIf}
    Pop $R0
  FunctionEnd
!macroend

!macro NoteIfUsed file
  ${If} ${FileExists} "$R0\${file}"
    ClearErrors
    FileOpen $R1 "$R0\${file}" a
    ${If} ${Errors}
      StrCpy $R2 "${file}"
    ${Else}
      FileClose $R1
    ${EndIf}
  ${EndIf}
!macroend

!insertmacro Checks ""
!insertmacro Checks "un."
