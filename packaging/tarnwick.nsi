; The installer: for everybody on the machine when an administrator runs it, else for the user alone.
; Silent: Tarnwick-2.0.0.7-setup.exe /S [/AllUsers | /CurrentUser] [/PATH] [/D=C:\folder with blanks]
; /PATH: tarnwick-run is found from every folder.
; Wants VERSION, FILES (the folder of what is installed), ICON and INSTALLER (the file to make).

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Tarnwick"
OutFile "${INSTALLER}"
BrandingText "Tarnwick ${VERSION}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarnwick"

; Where the event log finds what its entries of Tarnwick say.
!define EVENT_SOURCE_KEY "SYSTEM\CurrentControlSet\Services\EventLog\Application\Tarnwick"

!define MULTIUSER_EXECUTIONLEVEL Highest
; Who installs for everybody says so: then Tarnwick's own folder, where its INI file would lie, cannot be
; written by the program.
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Tarnwick"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!addincludedir "${__FILEDIR__}"
!include safe-folder.nsh
!include Sections.nsh
!include WinMessages.nsh
!include search-path.nsh

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION startAsTheUser
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

VIProductVersion "${VERSION}"
VIAddVersionKey "ProductName" "Tarnwick"
VIAddVersionKey "CompanyName" "Corvane"
VIAddVersionKey "FileDescription" "Installs Tarnwick"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Corvane"

; The installer may have an administrator's rights, which the program is not to get from it.
Function startAsTheUser
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\Tarnwick.exe"'
FunctionEnd

!macro REQUIRE_RIGHTS_WHEN_SILENT
  ${If} ${Silent}
    UserInfo::GetAccountType
    Pop $R2
    ${If} $R2 != "Admin"
      SetErrorLevel 5
      Quit
    ${EndIf}
  ${EndIf}
!macroend

Function .onInit
  SetRegView 64
  Call refuseQuietly
  ; A folder given by /D stands in $INSTDIR already, and is not to be lost to the usual ones.
  StrCpy $R0 $INSTDIR
  !insertmacro MULTIUSER_INIT
  Call everybodyForTheSystem
  ${If} $R0 != ""
    StrCpy $INSTDIR $R0
  ${EndIf}
  Call chooseSearchPath
FunctionEnd

; Without the rights for what was asked there would be a message, for which nobody may be there.
Function refuseQuietly
  ${GetParameters} $R1
  ClearErrors
  ${GetOptions} $R1 "/AllUsers" $R2
  ${IfNot} ${Errors}
    !insertmacro REQUIRE_RIGHTS_WHEN_SILENT
  ${EndIf}
FunctionEnd

Function un.refuseQuietly
  ReadRegStr $R2 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $R2 == $INSTDIR
    !insertmacro REQUIRE_RIGHTS_WHEN_SILENT
  ${EndIf}
FunctionEnd

; The system's own account, which deploys programs, has no start menu and no registry that anybody
; would look into: what it installs is for everybody.
Function everybodyForTheSystem
  StrCpy $R2 $PROFILE "" -13
  ${If} $R2 == "systemprofile"
    Call MultiUser.InstallMode.AllUsers
  ${EndIf}
FunctionEnd

; Nothing is changed at all.
!macro GIVE_UP TEXT
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
  SetErrorLevel 2
  Abort
!macroend

; Whoever uses a file of ours keeps it: the program that runs, the manual that is open.
!macro REQUIRE_FREE NAME TEXT
  ${If} ${FileExists} "$INSTDIR\${NAME}"
    ClearErrors
    FileOpen $R3 "$INSTDIR\${NAME}" a
    ${If} ${Errors}
      !insertmacro GIVE_UP "${TEXT}"
    ${EndIf}
    FileClose $R3
  ${EndIf}
!macroend

!macro REQUIRE_PROGRAM_AT_REST
  !insertmacro REQUIRE_FREE "Tarnwick.exe" "Tarnwick is running. Please close it and start this again."
  !insertmacro REQUIRE_FREE "tarnwick-run.exe" "tarnwick-run is at work. Please let it end and start this again."
  !insertmacro REQUIRE_FREE "Tarnwick.chm" "The manual of Tarnwick is open. Please close it and start this again."
!macroend

; From the folder of the new version to its place. The old one is kept until all are there.
!macro PUT_IN_PLACE NAME
  ${If} ${FileExists} "$INSTDIR\${NAME}"
    Delete "$INSTDIR\Tarnwick.old\${NAME}"
    Rename "$INSTDIR\${NAME}" "$INSTDIR\Tarnwick.old\${NAME}"
  ${EndIf}
  Rename "$INSTDIR\Tarnwick.new\${NAME}" "$INSTDIR\${NAME}"
!macroend

!macro TAKE_BACK NAME
  ${Unless} ${FileExists} "$INSTDIR\Tarnwick.new\${NAME}" ; the new one has its place already
    Delete "$INSTDIR\${NAME}"
  ${EndUnless}
  ${Unless} ${FileExists} "$INSTDIR\${NAME}"
    Rename "$INSTDIR\Tarnwick.old\${NAME}" "$INSTDIR\${NAME}"
  ${EndUnless}
!macroend

!macro FOR_EVERY_FILE DO
  !insertmacro ${DO} "Tarnwick.exe"
  !insertmacro ${DO} "tarnwick-run.exe"
  !insertmacro ${DO} "Tarnwick.chm"
  !insertmacro ${DO} "Tarnwick.txt"
  !insertmacro ${DO} "CLI11-licence.txt"
  !insertmacro ${DO} "JSON-licence.txt"
  !insertmacro ${DO} "Uninstall.exe"
!macroend

!macro FORGET_NEW NAME
  Delete "$INSTDIR\Tarnwick.new\${NAME}"
!macroend

!macro FORGET_OLD NAME
  Delete "$INSTDIR\Tarnwick.old\${NAME}"
!macroend

!macro FORGET_SEARCH_PATH UN
  ReadRegStr $R4 SHCTX "${UNINSTALL_KEY}" "SearchPath"
  ${If} $R4 != ""
    StrCpy $R5 "remove"
    Call ${UN}changeSearchPath
    DeleteRegValue SHCTX "${UNINSTALL_KEY}" "SearchPath"
  ${EndIf}
!macroend

Function un.onInit
  SetRegView 64
  Call un.refuseQuietly
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section "Tarnwick"
  SectionIn RO
  !insertmacro REQUIRE_PROGRAM_AT_REST
  !insertmacro REQUIRE_FREE "Tarnwick.txt" "Tarnwick.txt is in use. Please close it and start this again."
  ${If} $MultiUser.InstallMode == "AllUsers"
    Call requireSafeFolder
  ${EndIf}
  ; First beside the old version, which stays whole when the disk is full, say.
  SetOverwrite try
  SetOutPath "$INSTDIR\Tarnwick.new"
  ClearErrors
  File "${FILES}\Tarnwick.exe"
  File "${FILES}\tarnwick-run.exe"
  File "${FILES}\Tarnwick.chm"
  File "${FILES}\Tarnwick.txt"
  File "${FILES}\CLI11-licence.txt"
  File "${FILES}\JSON-licence.txt"
  WriteUninstaller "$INSTDIR\Tarnwick.new\Uninstall.exe"
  SetOutPath "$INSTDIR"
  ${If} ${Errors}
    !insertmacro FOR_EVERY_FILE FORGET_NEW
    RMDir "$INSTDIR\Tarnwick.new"
    !insertmacro GIVE_UP "The files of Tarnwick cannot be written into $INSTDIR."
  ${EndIf}
  CreateDirectory "$INSTDIR\Tarnwick.old"
  !insertmacro FOR_EVERY_FILE PUT_IN_PLACE
  ${If} ${Errors}
    !insertmacro FOR_EVERY_FILE TAKE_BACK
    RMDir "$INSTDIR\Tarnwick.old"
    !insertmacro FOR_EVERY_FILE FORGET_NEW
    RMDir "$INSTDIR\Tarnwick.new"
    !insertmacro GIVE_UP "Some files of Tarnwick cannot be replaced in $INSTDIR. The old ones are in their place."
  ${EndIf}
  RMDir "$INSTDIR\Tarnwick.new"
  !insertmacro FOR_EVERY_FILE FORGET_OLD
  RMDir "$INSTDIR\Tarnwick.old"

  CreateDirectory "$SMPROGRAMS\Tarnwick"
  CreateShortcut "$SMPROGRAMS\Tarnwick\Tarnwick.lnk" "$INSTDIR\Tarnwick.exe"
  CreateShortcut "$SMPROGRAMS\Tarnwick\Tarnwick Help.lnk" "$INSTDIR\Tarnwick.chm"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Tarnwick"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Tarnwick.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Corvane"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /$MultiUser.InstallMode /S'
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1

  ${If} $MultiUser.InstallMode == "AllUsers"
    WriteRegExpandStr HKLM "${EVENT_SOURCE_KEY}" "EventMessageFile" "$INSTDIR\Tarnwick.exe"
    WriteRegDWORD HKLM "${EVENT_SOURCE_KEY}" "TypesSupported" 7 ; errors, warnings, information
  ${EndIf}

  !insertmacro FORGET_SEARCH_PATH "" ; of an older version, which may lie elsewhere
SectionEnd

Section /o "tarnwick-run on the PATH" searchPath
  StrCpy $R4 $INSTDIR
  StrCpy $R5 "add"
  StrCpy $R6 "no"
  System::Call 'shlwapi::StrCSpnW(w R4, w ";%") i .r0'
  StrLen $1 $R4
  ${If} $0 = $1 ; else it would be more than one entry, or another folder
    Call changeSearchPath
  ${EndIf}
  ${If} $R6 == "yes"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "SearchPath" "$INSTDIR"
  ${Else}
    MessageBox MB_OK|MB_ICONINFORMATION "The PATH was left as it is." /SD IDOK
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${searchPath} "The command tarnwick-run, which runs definitions without a window, is found from every folder."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Who had it has it again.
Function chooseSearchPath
  ReadRegStr $R2 SHCTX "${UNINSTALL_KEY}" "SearchPath"
  ${GetParameters} $R1
  ClearErrors
  ${GetOptions} $R1 "/PATH" $R3
  ${IfNot} ${Errors}
  ${OrIf} $R2 != ""
    !insertmacro SelectSection ${searchPath}
  ${EndIf}
FunctionEnd

; File by file: the folder may hold the user's INI files, tools and records, and they stay.
Section "Uninstall"
  !insertmacro REQUIRE_PROGRAM_AT_REST
  !insertmacro FORGET_SEARCH_PATH "un."
  Delete "$INSTDIR\Tarnwick.exe"
  Delete "$INSTDIR\tarnwick-run.exe"
  Delete "$INSTDIR\Tarnwick.chm"
  Delete "$INSTDIR\Tarnwick.txt"
  Delete "$INSTDIR\CLI11-licence.txt"
  Delete "$INSTDIR\JSON-licence.txt"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Tarnwick\Tarnwick.lnk"
  Delete "$SMPROGRAMS\Tarnwick\Tarnwick Help.lnk"
  RMDir "$SMPROGRAMS\Tarnwick"
  ${If} $MultiUser.InstallMode == "AllUsers"
    DeleteRegKey HKLM "${EVENT_SOURCE_KEY}"
  ${EndIf}
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
