; The installer for Windows; compile.sh beside it makes the lists of files and says what the names below stand for:
; BITS, VERSION, NUMBERS (the version with four numbers), LISTS, OUTPUT, and QUICK for one that is only tested.
Unicode true
!if ${BITS} == 64
  Target amd64-unicode
  !define MULTIUSER_USE_PROGRAMFILES64
!endif
!ifdef QUICK
  SetCompress off
!else
  SetCompressor /SOLID lzma
!endif

!define NAME "Lumarin ${BITS}-bit"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define KEY "${ENTRY}\${NAME}"
Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "Lumarin ${VERSION}"
ManifestDPIAware true
AllowSkipFiles off
VIProductVersion "${NUMBERS}"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Setup of ${NAME}"
VIAddVersionKey "LegalCopyright" ""

; Exit codes; 1 is a person's "Cancel" and 2 a file that could not be written.
!define IN_USE 3
!define NO_RIGHTS 4
!define NOT_REGISTERED 5

; Who has no administrator's rights installs without them, for this user.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_NOUNINSTALL
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_FUNCTION ModeChosen
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include "${LISTS}"
!include "${__FILEDIR__}\checks.nsh"

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var FolderGiven ; by /D=, which has to be the last argument
Var Scope       ; how the library is told for whom it is registered

Section "-Earlier version"
  Push "$INSTDIR"
  Call RequireUnused
  ReadRegStr $0 SHCTX "${KEY}" "InstallLocation"
  ${If} ${FileExists} "$0\uninstall.exe"
    Push "$0"
    Call RequireUnused
    ; The last argument keeps it from starting a copy of itself, which nobody could wait for.
    ExecWait '"$0\uninstall.exe" /S /Repair _?=$0' $1
    ${If} $1 <> 0
      !insertmacro Refuse $1 "The version of ${NAME} that is in $\"$0$\" could not be removed. Nothing was installed."
    ${EndIf}
    ${If} $0 != $INSTDIR
      Delete "$0\uninstall.exe"
      RMDir "$0"
    ${EndIf}
  ${EndIf}
SectionEnd

Section "Component"
  SectionIn RO
  !insertmacro InstallComponent
  WriteUninstaller "$INSTDIR\uninstall.exe"
SectionEnd

Section /o "Reference host" Host
  !insertmacro InstallHost
  SetOutPath "$INSTDIR" ; where the program starts
  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortCut "$SMPROGRAMS\${NAME}\Reference host.lnk" "$INSTDIR\lumarin-host.exe"
SectionEnd

Section "Documentation" Documentation
  !insertmacro InstallDocumentation
  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortCut "$SMPROGRAMS\${NAME}\Documentation.lnk" "$INSTDIR\docs"
SectionEnd

; Last, so that what cannot be registered can still be removed.
Section "-Registration"
  WriteRegStr SHCTX "${KEY}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${KEY}" "DisplayIcon" "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${KEY}" "EstimatedSize" $0

  SetOutPath "$INSTDIR"
  ExecWait '"$SYSDIR\regsvr32.exe" /s $Scope "$INSTDIR\QorLumarin.dll"' $0
  ${If} $0 <> 0
    !insertmacro Refuse ${NOT_REGISTERED} "QorLumarin.dll could not be registered (regsvr32 says $0). \
      Its files are in $\"$INSTDIR$\"."
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Host} "A small listing program with demo data and photos to try out, in which the component runs."
  !insertmacro MUI_DESCRIPTION_TEXT ${Documentation} "The user's guide, and what a host's developer needs."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  SetRegView ${BITS}
  StrCpy $FolderGiven $INSTDIR
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    Call RequireAdministrator
  ${EndIf}
  !insertmacro MULTIUSER_INIT

  ${GetOptions} $0 "/Host" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${Host}
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/NoDocs" $1
  ${IfNot} ${Errors}
    !insertmacro UnselectSection ${Documentation}
  ${EndIf}
FunctionEnd

; Called at the start, and when a person has chosen for whom.
Function ModeChosen
  ${If} $FolderGiven != ""
    StrCpy $INSTDIR $FolderGiven
  ${EndIf}
  ${If} $MultiUser.InstallMode == "CurrentUser"
    StrCpy $Scope "/n /i:user"
  ${Else}
    StrCpy $Scope ""
  ${EndIf}
  ; A repair keeps what is there.
  ${If} ${FileExists} "$INSTDIR\lumarin-host.exe"
    !insertmacro SelectSection ${Host}
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView ${BITS}
  ; For one user, if it is this user's; then nobody has to say it, whoever starts it and however.
  SetShellVarContext current
  StrCpy $Scope "/n /i:user"
  ReadRegStr $0 SHCTX "${KEY}" "InstallLocation"
  ${If} $0 != $INSTDIR
    Call un.RequireAdministrator
    SetShellVarContext all
    StrCpy $Scope ""
  ${EndIf}
FunctionEnd

Section "Uninstall"
  Push "$INSTDIR"
  Call un.RequireUnused
  ExecWait '"$SYSDIR\regsvr32.exe" /s /u $Scope "$INSTDIR\QorLumarin.dll"' $0
  ${If} $0 <> 0
    ; A damaged library cannot take back what it has registered, but a sound one will be registered in its place.
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/Repair" $1
    ${If} ${Errors}
      !insertmacro Refuse ${NOT_REGISTERED} "QorLumarin.dll cannot be unregistered, as it is damaged or missing \
        (regsvr32 says $0). Nothing was removed. Run the setup once more, which repairs it; then remove it."
    ${EndIf}
  ${EndIf}
  SetOutPath "$TEMP" ; a folder that is somebody's working folder could not be removed

  Delete "$SMPROGRAMS\${NAME}\Reference host.lnk"
  Delete "$SMPROGRAMS\${NAME}\Documentation.lnk"
  RMDir "$SMPROGRAMS\${NAME}"
  !insertmacro RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${KEY}"
  ; A user who had no programs of their own before has no folder and no list for them afterwards.
  ${If} $Scope != ""
    RMDir "$LOCALAPPDATA\Programs"
    DeleteRegKey /ifempty SHCTX "${ENTRY}"
  ${EndIf}
SectionEnd
