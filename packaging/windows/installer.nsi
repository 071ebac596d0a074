; SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
; SPDX-License-Identifier: MIT
;
; The installer, for one user or for all. makensis gets VERSION, FILES (the folder with everything to
; install), UNINSTALLER, LIST (a file with a line for each file and folder to install), ICON, WEBSITE and
; OUTPUT. Silently: /S, with /CurrentUser or /AllUsers, and with /D=FOLDER at the very end. Without either
; of the two, an installation that is there is replaced, otherwise it is for the current user.

!include common.nsh
!include WinVer.nsh
!include nsDialogs.nsh
!include TextFunc.nsh
!include WordFunc.nsh

OutFile "${OUTPUT}"
VIAddVersionKey FileDescription "Brindle Setup"
; Stands for "no /D", since nobody gives a folder without a drive. A folder that the user chooses gets its
; last part.
!define NO_FOLDER "none\Brindle"
InstallDir "${NO_FOLDER}"

Var Users ; current or all
Var IsChosen ; 1 if the command line says for whom
Var Former ; the folder of the installation that is replaced; empty if there is none
Var ForMe
Var ForAll

!define MUI_ABORTWARNING
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipIfChosen
!insertmacro MUI_PAGE_WELCOME
Page custom AskForWhom TakeForWhom
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_LANGUAGE English

; ---- for whom, and where

Function TakeMode ; $Users -> context, $Former, and $INSTDIR unless $R9 is the folder that was asked for
  ${If} $Users == all
    SetShellVarContext all
    ReadRegStr $Former HKLM "${UNINSTALL_KEY}" InstallLocation
    StrCpy $INSTDIR "$PROGRAMFILES64\Brindle"
  ${Else}
    SetShellVarContext current
    ReadRegStr $Former HKCU "${UNINSTALL_KEY}" InstallLocation
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Brindle"
  ${EndIf}
  ${If} $R9 != "${NO_FOLDER}"
    StrCpy $INSTDIR $R9
  ${ElseIf} $Former != ""
    StrCpy $INSTDIR $Former
  ${EndIf}
FunctionEnd

Function .onInit
  SetRegView 64
  StrCpy $R9 $INSTDIR
  ${IfNot} ${AtLeastWin10}
    SetErrorLevel ${TOO_OLD}
    MessageBox MB_OK|MB_ICONSTOP "Brindle needs Windows 10 or a later Windows." /SD IDOK
    Quit
  ${EndIf}

  ${GetParameters} $R1
  ; Some shells put quotation marks around the whole of it, which the code before this does not take.
  ClearErrors
  ${WordFind} $R1 '"/D=' "E+1}" $0
  ${IfNot} ${Errors}
    ${WordFind} $0 '"' "+1{" $R9
  ${EndIf}
  StrCpy $IsChosen 1
  ClearErrors
  ${GetOptions} $R1 "/AllUsers" $0
  ${If} ${Errors}
    ClearErrors
    ${GetOptions} $R1 "/CurrentUser" $0
    ${If} ${Errors}
      StrCpy $IsChosen 0
      ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
      ReadRegStr $1 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${EndIf}
    StrCpy $Users current
    ${If} $IsChosen == 0
    ${AndIf} $0 == ""
    ${AndIf} $1 != ""
      StrCpy $Users all
    ${EndIf}
  ${Else}
    StrCpy $Users all
  ${EndIf}

  ${If} $Users == all
    !insertmacro AskForRights
    ${If} $0 == 0
      ${If} ${Silent}
        SetErrorLevel ${NO_RIGHTS}
        Quit
      ${ElseIf} $IsChosen == 1
        SetErrorLevel ${NO_RIGHTS}
        Call StartForAll
        ${IfNot} ${Errors}
          SetErrorLevel 0
        ${EndIf}
        Quit
      ${EndIf}
    ${EndIf}
  ${EndIf}
  Call TakeMode
FunctionEnd

Function StartForAll ; sets the error flag if the user refuses
  StrCpy $0 "/AllUsers"
  ${If} $R9 != "${NO_FOLDER}"
    StrCpy $0 "$0 /D=$R9"
  ${EndIf}
  !insertmacro StartElevated $0
FunctionEnd

Function SkipIfChosen
  ${If} $IsChosen == 1
    Abort
  ${EndIf}
FunctionEnd

Function AskForWhom
  Call SkipIfChosen
  !insertmacro MUI_HEADER_TEXT "Choose Users" "Choose for which users you want to install Brindle."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 20u 20u 250u 12u "Install for &me only"
  Pop $ForMe
  ${NSD_CreateRadioButton} 20u 38u 250u 12u "Install for &all users of this computer"
  Pop $ForAll
  ${NSD_CreateLabel} 32u 52u 250u 24u "Windows asks for the password or the consent of an administrator."
  Pop $0
  ${If} $Users == all
    ${NSD_Check} $ForAll
    ${NSD_SetFocus} $ForAll
  ${Else}
    ${NSD_Check} $ForMe
    ${NSD_SetFocus} $ForMe
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function TakeForWhom
  ${NSD_GetState} $ForAll $0
  StrCpy $Users current
  ${If} $0 == ${BST_CHECKED}
    StrCpy $Users all
    !insertmacro AskForRights
    ${If} $0 == 0
      Call StartForAll
      ${IfNot} ${Errors}
        Quit
      ${EndIf}
      MessageBox MB_OK|MB_ICONEXCLAMATION "Installing for all users takes an administrator."
      Abort
    ${EndIf}
  ${EndIf}
  Call TakeMode
FunctionEnd

; ---- what is replaced

; Removes what the version before installed and this one does not have. $PLUGINSDIR\former.txt is its
; list; a line of it that leads out of the folder is left alone.
Function RemoveFormerFiles
  ClearErrors
  FileOpen $R0 "$PLUGINSDIR\former.txt" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileRead $R0 $R1
    ${If} ${Errors}
      ${Break}
    ${EndIf}
    Push $R1
    Call IsStillInstalled
    Pop $0
    ${If} $0 == 0
      ${WordFind} $R1 ".." "E+1" $1 ; sets the error flag if there is none
      ${If} ${Errors}
        ${TrimNewLines} $R1 $R1
        StrCpy $1 $R1 1
        StrCpy $2 $R1 1 -1
        StrCpy $3 $R1 1 1
        ${If} $1 == "\"
        ${OrIf} $1 == ""
        ${OrIf} $3 == ":"
          ; not one of ours
        ${ElseIf} $2 == "\"
          RMDir "$INSTDIR\$R1"
        ${Else}
          Delete "$INSTDIR\$R1"
        ${EndIf}
      ${EndIf}
    ${EndIf}
  ${Loop}
  FileClose $R0
FunctionEnd

Function IsStillInstalled ; pops a line of the list, pushes 1 or 0
  Exch $R2
  Push $R3
  Push $R4
  StrCpy $R4 0
  FileOpen $R3 "$INSTDIR\installed-files.txt" r
  ${Do}
    ClearErrors
    FileRead $R3 $0
    ${If} ${Errors}
      ${Break}
    ${ElseIf} $0 == $R2
      StrCpy $R4 1
      ${Break}
    ${EndIf}
  ${Loop}
  FileClose $R3
  StrCpy $R2 $R4
  Pop $R4
  Pop $R3
  Exch $R2
FunctionEnd

; An installation in another folder moves into this one: with its settings and with what undoes
; normalizations, if they are beside the program.
Function RemoveFormerInstallation
  ${If} $Former == ""
  ${OrIf} $Former == $INSTDIR
  ${OrIfNot} ${FileExists} "$Former\uninstall.exe"
    Return
  ${EndIf}
  ${If} ${FileExists} "$Former\Brindle2.ini"
  ${AndIfNot} ${FileExists} "$INSTDIR\Brindle2.ini"
    Rename "$Former\Brindle2.ini" "$INSTDIR\Brindle2.ini"
    Rename "$Former\Brindle2.places" "$INSTDIR\Brindle2.places"
  ${EndIf}
  ${If} ${FileExists} "$Former\Brindle2.undo\*.*"
  ${AndIfNot} ${FileExists} "$INSTDIR\Brindle2.undo\*.*"
    ClearErrors
    Rename "$Former\Brindle2.undo" "$INSTDIR\Brindle2.undo"
    ${If} ${Errors} ; on another disk
      CopyFiles /SILENT "$Former\Brindle2.undo" "$INSTDIR"
    ${EndIf}
  ${EndIf}
  ExecWait '"$Former\uninstall.exe" /S'
FunctionEnd

Section
  !insertmacro WaitUntilClosed $INSTDIR
  ${If} $Former != ""
  ${AndIf} $Former != $INSTDIR
    !insertmacro WaitUntilClosed $Former
  ${EndIf}

  InitPluginsDir
  ${If} ${FileExists} "$INSTDIR\installed-files.txt"
    CopyFiles /SILENT "$INSTDIR\installed-files.txt" "$PLUGINSDIR\former.txt"
  ${EndIf}
  SetOutPath $INSTDIR
  File /r "${FILES}\*"
  File "/oname=uninstall.exe" "${UNINSTALLER}"
  File "/oname=installed-files.txt" "${LIST}"
  Call RemoveFormerFiles
  Call RemoveFormerInstallation
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
