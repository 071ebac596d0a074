; SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
; SPDX-License-Identifier: MIT
;
; What installer and uninstaller have in common. Both get VERSION and ICON.
;
; Exit codes: 0 done, 1 cancelled, 2 a file is in use, 3 an administrator is needed, 4 Windows is too old.
; 3 and 4 change nothing; neither does 2, if it is the program or its help that is in use.

Target amd64-unicode
Unicode true
ManifestDPIAware true
ManifestSupportedOS Win10
SetCompressor /SOLID lzma
AllowSkipFiles off
; For one user, Windows asks for no password; for all users, ElevateOrQuit does.
RequestExecutionLevel user

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Brindle"
!define IN_USE 2
!define NO_RIGHTS 3
!define TOO_OLD 4

Name Brindle
BrandingText "Brindle ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName Brindle
VIAddVersionKey CompanyName Velbrin
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Velbrin and the Brindle contributors"

!define MUI_ICON "${ICON}"

; A file that a running program or the help viewer holds cannot be written.
!macro WaitUntilWritable FOLDER FILE TO_DO
  ${Do}
    ${IfNot} ${FileExists} "${FOLDER}\${FILE}"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "${FOLDER}\${FILE}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    SetErrorLevel ${IN_USE}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${TO_DO} before you go on.$\n$\n${FOLDER}\${FILE} is in use." /SD IDCANCEL IDRETRY +2
      Quit
  ${Loop}
  SetErrorLevel -1 ; no other code than that of the end
!macroend
!macro WaitUntilClosed FOLDER
  !insertmacro WaitUntilWritable "${FOLDER}" brindle2.exe "Please close Brindle"
  !insertmacro WaitUntilWritable "${FOLDER}" brindle.exe "Please let the command line program, brindle, end"
  !insertmacro WaitUntilWritable "${FOLDER}" Brindle2.chm "Please close the window that shows the help of Brindle"
!macroend

; Sets $0 to 1 if this process may change what belongs to all users.
!macro AskForRights
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == Admin
    StrCpy $0 1
  ${Else}
    StrCpy $0 0
  ${EndIf}
!macroend

; Starts this program again, with the rights of an administrator. Sets the error flag if the user
; refuses.
!macro StartElevated OPTIONS
  ClearErrors
  ExecShell runas "$EXEPATH" "${OPTIONS}"
!macroend
