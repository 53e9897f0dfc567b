; The installer: for everybody on the machine when an administrator runs it, else for the user alone.
; Silent: Tarnwick-2.0.0.7-setup.exe /S [/AllUsers | /CurrentUser] [/D=C:\folder with blanks]
; Wants VERSION, FILES (the folder of what is installed), ICON and INSTALLER (the file to make).

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Tarnwick"
OutFile "${INSTALLER}"
BrandingText "Tarnwick ${VERSION}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarnwick"

!define MULTIUSER_EXECUTIONLEVEL Highest
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

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\Tarnwick.exe"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
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

; A folder given by /D stands in $INSTDIR already, and is not to be lost to the usual ones.
Function .onInit
  SetRegView 64
  StrCpy $R0 $INSTDIR
  !insertmacro MULTIUSER_INIT
  ${If} $R0 != ""
    StrCpy $INSTDIR $R0
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  File "${FILES}\Tarnwick.exe"
  File "${FILES}\Tarnwick.chm"
  File "${FILES}\README.txt"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

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
SectionEnd

; File by file: the folder may hold the user's INI files, tools and records, and they stay.
Section "Uninstall"
  Delete "$INSTDIR\Tarnwick.exe"
  Delete "$INSTDIR\Tarnwick.chm"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Tarnwick\Tarnwick.lnk"
  Delete "$SMPROGRAMS\Tarnwick\Tarnwick Help.lnk"
  RMDir "$SMPROGRAMS\Tarnwick"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
