; SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
; SPDX-License-Identifier: MIT
;
; The installer, for one user or for all. makensis gets VERSION, FILES (the folder with everything to
; install), REMOVAL (a file that deletes just that, file by file), ICON, WEBSITE and OUTPUT, and possibly
; SIGN (a command that signs the file whose path is appended to it). Silently: /S with /CurrentUser or
; /AllUsers. The uninstaller leaves the settings unless they are ticked too, or silently: /S
; /REMOVESETTINGS.

Target amd64-unicode
Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR Brindle
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Brindle"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME InstallLocation
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME InstallLocation
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

Name Brindle
InstallDir "$LOCALAPPDATA\Programs\Brindle" ; a folder that the user chooses gets its last part
OutFile "${OUTPUT}"
BrandingText "Brindle ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName Brindle
VIAddVersionKey CompanyName Velbrin
VIAddVersionKey FileDescription "Brindle Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Velbrin and the Brindle contributors"

!ifdef SIGN
  !finalize '${SIGN} "%1"'
  !uninstfinalize '${SIGN} "%1"'
!endif

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; A running program can be neither replaced nor removed: its file cannot be written.
!macro WaitUntilItRunsNoMore
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\brindle2.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\brindle2.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    ${If} ${Silent}
      SetErrorLevel 2
      Quit
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$INSTDIR\brindle2.exe cannot be replaced or removed. If Brindle is running, please close it." IDRETRY +2
      Quit
  ${Loop}
!macroend

Function .onInit
  SetRegView 64
  !insertmacro MULTIUSER_INIT
FunctionEnd

Section
  !insertmacro WaitUntilItRunsNoMore
  SetOutPath $INSTDIR
  File /r "${FILES}\*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Brindle.lnk" "$INSTDIR\brindle2.exe"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayName Brindle
  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" Publisher Velbrin
  WriteRegStr SHCTX "${UNINSTALL_KEY}" URLInfoAbout "${WEBSITE}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\brindle2.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" InstallLocation $INSTDIR
  WriteRegStr SHCTX "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoRepair 1
  ${GetSize} $INSTDIR "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize $0
SectionEnd

; Only what was installed: others may use the folder, too.
Section "-un.Program"
  !insertmacro WaitUntilItRunsNoMore
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  Delete "$SMPROGRAMS\Brindle.lnk"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd

; Beside the program, or where it keeps them for this user if it may not write there.
Section /o "un.My settings" Settings
  SetShellVarContext current
  Delete "$INSTDIR\Brindle2.ini"
  Delete "$INSTDIR\Brindle2.ini.bak"
  Delete "$LOCALAPPDATA\brindle2\Brindle2.ini"
  Delete "$LOCALAPPDATA\brindle2\Brindle2.ini.bak"
  RMDir "$LOCALAPPDATA\brindle2"
SectionEnd

; The folder is removed if nothing is left in it.
Section "-un.Folder"
  SetOutPath $TEMP
  RMDir "$INSTDIR"
SectionEnd

Function un.onInit
  SetRegView 64
  StrCpy $R0 $INSTDIR
  !insertmacro MULTIUSER_UNINIT
  ; The folder says whose installation this is; the modes bring folders of their own.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 == $R0
    Call un.MultiUser.InstallMode.CurrentUser
  ${Else}
    Call un.MultiUser.InstallMode.AllUsers
    ${If} $MultiUser.InstallMode != AllUsers
      MessageBox MB_OK|MB_ICONSTOP "Brindle was installed for all users of this computer; to uninstall it takes an administrator." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
  ${EndIf}
  StrCpy $INSTDIR $R0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/REMOVESETTINGS" $1
  ${IfNot} ${Errors}
    SectionSetFlags ${Settings} ${SF_SELECTED}
  ${EndIf}
FunctionEnd
