; SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
; SPDX-License-Identifier: MIT
;
; The uninstaller, a program of its own in the folder of what it removes. It works there, and not in a
; copy of itself as the uninstallers that makensis writes, so that who starts it can wait for it and gets
; its exit code (common.nsh). Only when all is done does a copy remove the uninstaller's own file.
; makensis gets VERSION, REMOVAL (a file that deletes what was installed, file by file), ICON and OUTPUT.
; Silently: /S, with the settings /REMOVESETTINGS, with what undoes normalizations /REMOVEUNDO.

!include common.nsh

OutFile "${OUTPUT}"
Caption "Brindle Uninstall"
SubCaption 3 " "
SubCaption 4 " "
VIAddVersionKey FileDescription "Brindle Uninstall"
InstallButtonText "&Uninstall"
CompletedText "Brindle was uninstalled."
InstallDir $EXEDIR
SpaceTexts none

Var IsDone ; 1 when everything is removed, but its last page is still open
Var Users ; current, all, or nothing if no installation is known in this folder

!define MUI_PAGE_HEADER_TEXT "Uninstall Brindle"
!define MUI_PAGE_HEADER_SUBTEXT "Brindle will be removed from this computer."
!define MUI_COMPONENTSPAGE_TEXT_TOP "Tick what is to go as well. What you leave unticked is kept for the next installation."
!define MUI_COMPONENTSPAGE_TEXT_COMPLIST "Remove:"
!define MUI_COMPONENTSPAGE_NODESC
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_HEADER_TEXT "Uninstalling"
!define MUI_PAGE_HEADER_SUBTEXT "Please wait while Brindle is being removed."
!define MUI_INSTFILESPAGE_FINISHHEADER_TEXT "Uninstalled"
!define MUI_INSTFILESPAGE_FINISHHEADER_SUBTEXT "Brindle was removed from this computer."
!define MUI_INSTFILESPAGE_ABORTHEADER_TEXT "Not uninstalled"
!define MUI_INSTFILESPAGE_ABORTHEADER_SUBTEXT "Some files could not be removed."
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Only what was installed: others may use the folder, too.
Section "Brindle" Program
  SectionIn RO
  SetOutPath $TEMP
  !insertmacro WaitUntilClosed $INSTDIR
  ClearErrors
  !include "${REMOVAL}"
  ${If} ${Errors}
    SetErrorLevel ${IN_USE}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Some files in $INSTDIR are in use. Please close the programs that show them and uninstall again." /SD IDOK
    Abort
  ${EndIf}
  !insertmacro RemoveFolders
  ${If} $Users != ""
    Delete "$SMPROGRAMS\Brindle.lnk"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd

; Beside the program, or where it keeps them for this user if it may not write there.
Section /o "My settings" Settings
  SetShellVarContext current
  Delete "$INSTDIR\Brindle2.ini"
  Delete "$INSTDIR\Brindle2.ini.bak"
  Delete "$INSTDIR\Brindle2.places"
  Delete "$LOCALAPPDATA\brindle2\Brindle2.ini"
  Delete "$LOCALAPPDATA\brindle2\Brindle2.ini.bak"
  Delete "$LOCALAPPDATA\brindle2\Brindle2.places"
  RMDir "$LOCALAPPDATA\brindle2"
SectionEnd

!macro RemoveRecordsIn FOLDER
  Delete "${FOLDER}\*.undo"
  Delete "${FOLDER}\*.unusable"
  RMDir "${FOLDER}"
!macroend
Section /o "What undoes normalizations" Undo
  SetShellVarContext current
  !insertmacro RemoveRecordsIn "$INSTDIR\Brindle2.undo"
  !insertmacro RemoveRecordsIn "$LOCALAPPDATA\brindle2\undo"
  RMDir "$LOCALAPPDATA\brindle2"
SectionEnd

; A running program cannot remove its own file: a copy does that when this one has ended.
Function StartSweeper
  InitPluginsDir
  CopyFiles /SILENT "$EXEPATH" "$PLUGINSDIR\uninstall.exe"
  Exec '"$PLUGINSDIR\uninstall.exe" /S /SWEEP=$INSTDIR'
FunctionEnd
Section
  ${If} ${Silent}
    Call StartSweeper
  ${Else}
    StrCpy $IsDone 1
  ${EndIf}
SectionEnd
Function .onGUIEnd
  ${If} $IsDone == 1
    Call StartSweeper
  ${EndIf}
FunctionEnd

; The copy: removes the uninstaller's file, and the folder if nothing is left in it. If there is a program
; in the folder, it has been installed again since, with an uninstaller of its own.
Function Sweep ; $R0 is the folder
  SetOutPath $TEMP
  ${ForEach} $0 1 120 + 1
    ${If} ${FileExists} "$R0\brindle2.exe"
      Return
    ${EndIf}
    Delete "$R0\uninstall.exe"
    ${IfNot} ${FileExists} "$R0\uninstall.exe"
      ${Break}
    ${EndIf}
    Sleep 250
  ${Next}
  RMDir "$R0"
  Delete /REBOOTOK "$EXEPATH"
  RMDir /REBOOTOK "$EXEDIR"
FunctionEnd

Function .onInit
  SetRegView 64
  ${GetParameters} $R1
  ClearErrors
  ${GetOptions} $R1 "/SWEEP=" $R0
  ${IfNot} ${Errors}
    Call Sweep
    Quit
  ${EndIf}

  StrCpy $INSTDIR $EXEDIR
  SetShellVarContext current
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ReadRegStr $1 HKLM "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 == $INSTDIR
    StrCpy $Users current
  ${ElseIf} $1 == $INSTDIR
    StrCpy $Users all
    !insertmacro AskForRights
    ${If} $0 == 0
      SetErrorLevel ${NO_RIGHTS}
      ${IfNot} ${Silent}
        !insertmacro StartElevated $R1
        ${IfNot} ${Errors}
          SetErrorLevel 0
        ${EndIf}
      ${EndIf}
      Quit
    ${EndIf}
    SetShellVarContext all
  ${EndIf}

  ClearErrors
  ${GetOptions} $R1 "/REMOVESETTINGS" $0
  ${IfNot} ${Errors}
    SectionSetFlags ${Settings} ${SF_SELECTED}
  ${EndIf}
  ClearErrors
  ${GetOptions} $R1 "/REMOVEUNDO" $0
  ${IfNot} ${Errors}
    SectionSetFlags ${Undo} ${SF_SELECTED}
  ${EndIf}
FunctionEnd
