; The installer, for the machine or for one user, made on any system: see make.cmake, which passes
; VERSION, STAGE (the folder to install), CONTENTS (the list of what is installed), OUTFILE and the
; identifiers.
;
; The packager's MultiUser.nsh is not used: it offers the choice of scope only in programs that ask
; for elevation at their start, it has no exit codes for a refusal, and it ignores unknown switches.
;
; Nothing is half replaced. The new files are first put into "$INSTDIR\.new"; then the old ones move
; to ".old" and the new ones into their places, which takes no room and no time; then the libraries
; are registered. Whatever fails on the way takes the old files back, and so does the next run where
; this one was cut off. Renaming ".old" is the point of no return.
;
; Exit codes, also in docs/installing.md: 0 done, 1 cancelled, 2 failed and taken back, 3 in use,
; 4 administrator rights are needed, 5 a newer version is installed, 6 wrong switches or a system
; that is too old.
Unicode true
ManifestSupportedOS all
ManifestDPIAware true
; Never asks for elevation by itself: installing for one user needs none, and whoever installs for
; the machine silently has it already. The page of choices asks for it where it is needed.
RequestExecutionLevel user
SetCompressor /SOLID zlib
SetDateSave off
AllowSkipFiles off

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include nsDialogs.nsh
!include TextFunc.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include x64.nsh

!define LIBRARY "kvrrcBHDGS.dll"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillstart"

Name "Quillstart"
BrandingText "Quillstart ${VERSION}"
OutFile "${OUTFILE}"
VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey ProductName "Quillstart"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Quillstart installer"
VIAddVersionKey CompanyName "The Quillstart developers"
VIAddVersionKey LegalCopyright "MIT licence"

Var Scope             ; AllUsers or CurrentUser
Var Administrator     ; 1 where this process may change the machine
Var WantedFolder      ; given by /D=
Var InstalledFolder   ; of an installed version of the same scope, or empty
Var InstalledVersion
Var InUse             ; a library that somebody has loaded, or empty
Var Failure           ; what went wrong, or empty
Var ForAllUsers       ; the page's choices
Var ForCurrentUser
Var Removed           ; 1 when the uninstaller has done its work

!define MUI_ABORTWARNING
Page custom AskScope LeaveScope
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhereInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Refuse CODE TEXT: ends the program; the text is shown where somebody can see it.
!macro Refuse code text
  SetErrorLevel ${code}
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  Quit
!macroend
!define Refuse "!insertmacro Refuse"

; What installer and uninstaller share; the uninstaller's functions are named "un.".
!macro SharedFunctions un

; The registry of 64-bit Windows is looked at as its own programs see it.
Function ${un}ChooseView
  ${If} ${RunningX64}
    SetRegView 64
  ${Else}
    SetRegView 32
  ${EndIf}
FunctionEnd

Function ${un}KnowSystem
  Call ${un}ChooseView
  StrCpy $Administrator 0
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    StrCpy $Administrator 1
  ${EndIf}
FunctionEnd

; Switches are checked, so that a mistyped one does not install for the wrong people.
Function ${un}ReadSwitches
  ${GetParameters} $0
  StrCpy $1 0
  ${Do}
    IntOp $1 $1 + 1
    ClearErrors
    ${WordFind} " $0 " " " "E+$1" $2
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ${If} $2 == "/AllUsers"
    ${OrIf} $2 == "/CurrentUser"
      StrCpy $2 $2 "" 1
      ${If} $Scope != ""
      ${AndIf} $Scope != $2
        ${Refuse} 6 "/AllUsers and /CurrentUser exclude each other."
      ${EndIf}
      StrCpy $Scope $2
    ${ElseIf} $2 != "/S"
    ${AndIf} $2 != "/NCRC"
    ${AndIf} $2 != ""
      ${Refuse} 6 "There is no switch $2. Switches are /S, /AllUsers, /CurrentUser and, last, /D=folder."
    ${EndIf}
  ${Loop}
FunctionEnd

; Sets where the entries of the chosen scope lie, and what is installed there.
Function ${un}EnterScope
  ${If} $Scope == "AllUsers"
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
  ReadRegStr $InstalledFolder SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $InstalledVersion SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
FunctionEnd

; A loaded library cannot be opened for writing.
Function ${un}FindInUse
  StrCpy $InUse ""
  !insertmacro FindOneInUse x86
  !insertmacro FindOneInUse x64
FunctionEnd

; Goes on when nobody uses the libraries, or leaves the name of one in $InUse.
Function ${un}WaitForUsers
  ${Do}
    Call ${un}FindInUse
    ${If} $InUse == ""
      Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "A program is using Quillstart:$\r$\n$InUse$\r$\n$\r$\nClose the program that has loaded it (the remote-administration host), then choose Retry. Nothing has been changed so far." /SD IDCANCEL IDRETRY again
    Return
    again:
  ${Loop}
FunctionEnd

; Removes the registration of the libraries in $INSTDIR, and of no others.
Function ${un}Unregister
  !insertmacro RunRegistration x86 "/u" "$SYSDIR"
  ${If} ${IsNativeAMD64}
    !insertmacro RunRegistration x64 "/u" "$WINDIR\Sysnative"
  ${EndIf}
  ; Also where a library is damaged or gone.
  StrCpy $5 0
  !insertmacro RemoveRegistration 32 x86
  !insertmacro RemoveRegistration 64 x64
  Call ${un}ChooseView
  ; What both bitnesses share goes with the last of them.
  ${If} $5 = 0
    ReadRegStr $2 SHCTX "Software\Classes\kvrrcBHDGS.clsPlugin\CLSID" ""
    ${If} $2 == "${CLASS_ID}"
      DeleteRegKey SHCTX "Software\Classes\kvrrcBHDGS.clsPlugin"
    ${EndIf}
    DeleteRegKey SHCTX "Software\Classes\TypeLib\${TYPE_LIBRARY_ID}"
  ${EndIf}
FunctionEnd

; RemoveFolders: those of the list in $0, below the folder in $1, as far as they are empty.
Function ${un}RemoveFolders
  ClearErrors
  FileOpen $2 "$0" r
  ${IfNot} ${Errors}
    ${Do}
      Call ${un}ReadName
      ${If} $3 == ""
        ${ExitDo}
      ${EndIf}
      ${GetParent} "$1\$3" $4
      RMDir "$4"
    ${Loop}
    FileClose $2
  ${EndIf}
  RMDir "$1"
  ClearErrors
FunctionEnd

; The next name of the list that is open in $2, into $3; empty at its end. A name that leads out of
; the folder is no name of ours, and ends the list.
Function ${un}ReadName
  ClearErrors
  FileRead $2 $3
  ${If} ${Errors}
    StrCpy $3 ""
    Return
  ${EndIf}
  ${TrimNewLines} "$3" $3
  ${WordFind} "$3" ".." "E*" $5
  ${IfNot} ${Errors}
    StrCpy $3 ""
  ${EndIf}
  ${WordFind} "$3" ":" "E*" $5
  ${IfNot} ${Errors}
    StrCpy $3 ""
  ${EndIf}
  ClearErrors
FunctionEnd

!macroend

!macro FindOneInUse architecture
  ${If} ${FileExists} "$INSTDIR\${architecture}\${LIBRARY}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${architecture}\${LIBRARY}" a
    ${If} ${Errors}
      StrCpy $InUse "$INSTDIR\${architecture}\${LIBRARY}"
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
!macroend

; RunRegistration ARCHITECTURE SWITCHES FOLDER: the registration tool that lies in the folder runs
; the library's own entry points.
!macro RunRegistration architecture switches folder
  ${If} ${FileExists} "$INSTDIR\${architecture}\${LIBRARY}"
    StrCpy $0 ""
    ${If} $Scope == "CurrentUser"
      StrCpy $0 "/n /i:user"
    ${EndIf}
    ClearErrors
    ExecWait '"${folder}\regsvr32.exe" /s ${switches} $0 "$INSTDIR\${architecture}\${LIBRARY}"' $1
    ${If} ${Errors}
      StrCpy $Failure "The ${architecture} library cannot be registered: regsvr32 does not start."
    ${ElseIf} $1 <> 0
      StrCpy $Failure "The ${architecture} library cannot be registered (regsvr32 says $1)."
    ${EndIf}
  ${EndIf}
!macroend

; What is registered in the view goes where it is one of our libraries; $5 is 1 where it is another.
!macro RemoveRegistration view architecture
  SetRegView ${view}
  ReadRegStr $2 SHCTX "Software\Classes\CLSID\${CLASS_ID}\InprocServer32" ""
  ${If} $2 == "$INSTDIR\x86\${LIBRARY}"
  ${OrIf} $2 == "$INSTDIR\x64\${LIBRARY}"
    DeleteRegKey SHCTX "Software\Classes\CLSID\${CLASS_ID}"
    StrCpy $2 ""
  ${EndIf}
  ReadRegStr $3 SHCTX "Software\Classes\TypeLib\${TYPE_LIBRARY_ID}\${TYPE_LIBRARY_VERSION}\0\win${view}" ""
  ${If} $3 == "$INSTDIR\${architecture}\${LIBRARY}"
    DeleteRegKey SHCTX "Software\Classes\TypeLib\${TYPE_LIBRARY_ID}\${TYPE_LIBRARY_VERSION}\0\win${view}"
    StrCpy $3 ""
  ${EndIf}
  ${If} "$2$3" == ""
    DeleteRegKey SHCTX "Software\Classes\Interface\${INTERFACE_ID}"
  ${Else}
    StrCpy $5 1
  ${EndIf}
!macroend

!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

; ---- installing

Function .onInit
  StrCpy $WantedFolder $INSTDIR
  Call KnowSystem
  ${IfNot} ${AtLeastWin7}
    ${Refuse} 6 "Quillstart needs Windows 7 or later."
  ${EndIf}
  Call ReadSwitches
  ${If} $Scope == ""
    ; An installed version is brought up to date where it is.
    StrCpy $Scope "CurrentUser"
    Call EnterScope
    ; COM looks for no classes of a user's own on behalf of a program that runs as administrator, as
    ; hosts do: all users are preselected. A silent run takes what its rights allow.
    ${IfNot} ${Silent}
    ${OrIf} $Administrator = 1
      ${If} $InstalledFolder == ""
        StrCpy $Scope "AllUsers"
      ${EndIf}
    ${EndIf}
  ${EndIf}
  ${If} ${Silent}
    ${If} $Scope == "AllUsers"
    ${AndIf} $Administrator = 0
      ${Refuse} 4 "Installing for all users needs administrator rights."
    ${EndIf}
    Call ChooseFolder
  ${EndIf}
FunctionEnd

; The folder of the chosen scope; refuses where a version is there that this one must not replace.
Function ChooseFolder
  Call EnterScope
  ${If} $InstalledFolder != ""
    ${If} $WantedFolder != ""
    ${AndIf} $WantedFolder != $InstalledFolder
      ${Refuse} 6 "Quillstart is installed in $InstalledFolder and is brought up to date there. To move it, uninstall it first."
    ${EndIf}
    ${VersionCompare} "${VERSION}" "$InstalledVersion" $0
    ${If} $0 = 2
      ${Refuse} 5 "Quillstart $InstalledVersion is installed, which is newer than ${VERSION}. To go back, uninstall it first."
    ${EndIf}
    StrCpy $INSTDIR $InstalledFolder
  ${ElseIf} $WantedFolder != ""
    StrCpy $INSTDIR $WantedFolder
  ${ElseIf} $Scope == "CurrentUser"
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Quillstart"
  ${ElseIf} ${RunningX64}
    StrCpy $INSTDIR "$PROGRAMFILES64\Quillstart"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES32\Quillstart"
  ${EndIf}
FunctionEnd

Function AskScope
  !insertmacro MUI_HEADER_TEXT "Who is it for?" "Quillstart ${VERSION} adds game server hosting to the remote-administration host."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 10u 100% 12u "For &all users of this computer (needs administrator rights)"
  Pop $ForAllUsers
  ${NSD_CreateRadioButton} 0 28u 100% 12u "Only for &me"
  Pop $ForCurrentUser
  ${NSD_CreateLabel} 0 48u 100% 36u "A host that runs as administrator finds the plug-in only if it is installed for all users: Windows (COM) ignores a user's own classes there."
  Pop $0
  ${If} $Scope == "AllUsers"
    ${NSD_Check} $ForAllUsers
    ${NSD_SetFocus} $ForAllUsers
  ${Else}
    ${NSD_Check} $ForCurrentUser
    ${NSD_SetFocus} $ForCurrentUser
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function LeaveScope
  StrCpy $Scope "CurrentUser"
  ${NSD_GetState} $ForAllUsers $0
  ${If} $0 = ${BST_CHECKED}
    StrCpy $Scope "AllUsers"
    ${If} $Administrator = 0
      ; Starts again with the rights that are needed; the operator may say no.
      ClearErrors
      StrCpy $0 "/AllUsers"
      ${If} $WantedFolder != ""
        StrCpy $0 "/AllUsers /D=$WantedFolder"
      ${EndIf}
      ExecShell "runas" "$EXEPATH" "$0"
      ${If} ${Errors}
        Abort
      ${EndIf}
      Quit
    ${EndIf}
  ${EndIf}
  Call ChooseFolder
FunctionEnd

Function SkipWhereInstalled
  ${If} $InstalledFolder != ""
    Abort
  ${EndIf}
FunctionEnd

; Moves the files of the list in $0 from the folder $1 to the folder $6, as far as they are there;
; $Failure tells what could not be moved, and the rest is then left.
Function MoveFiles
  ClearErrors
  FileOpen $2 "$0" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    Call ReadName
    ${If} $3 == ""
      ${ExitDo}
    ${EndIf}
    ${If} ${FileExists} "$1\$3"
      ${GetParent} "$6\$3" $4
      CreateDirectory "$4"
      ClearErrors
      Rename "$1\$3" "$6\$3"
      ${If} ${Errors}
        StrCpy $Failure "$1\$3 cannot be replaced."
        ${ExitDo}
      ${EndIf}
    ${EndIf}
  ${Loop}
  FileClose $2
FunctionEnd

; Takes an unfinished replacement back: new files go, old ones return.
Function TakeBack
  StrCpy $0 "$INSTDIR\.new\contents.txt"
  ${IfNot} ${FileExists} "$0"
    StrCpy $0 "$INSTDIR\contents.txt"
  ${EndIf}
  CopyFiles /SILENT "$0" "$PLUGINSDIR\new.txt"
  FileOpen $2 "$PLUGINSDIR\new.txt" r
  ${Do}
    Call ReadName
    ${If} $3 == ""
      ${ExitDo}
    ${EndIf}
    ; Neither waiting nor set aside: it was put there.
    ${IfNot} ${FileExists} "$INSTDIR\.new\$3"
    ${AndIf} ${FileExists} "$INSTDIR\.old\started"
      Delete "$INSTDIR\$3"
    ${EndIf}
  ${Loop}
  FileClose $2
  StrCpy $0 "$INSTDIR\.old\contents.txt"
  ${IfNot} ${FileExists} "$0"
    StrCpy $0 "$INSTDIR\contents.txt"
  ${EndIf}
  CopyFiles /SILENT "$0" "$PLUGINSDIR\old.txt"
  StrCpy $0 "$PLUGINSDIR\old.txt"
  StrCpy $1 "$INSTDIR\.old"
  StrCpy $6 "$INSTDIR"
  Call MoveFiles
  RMDir /r "$INSTDIR\.old"
  RMDir /r "$INSTDIR\.new"
FunctionEnd

; Fails with what $Failure says, after everything was taken back.
!macro FailIfNeeded
  ${If} $Failure != ""
    DetailPrint "$Failure"
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "$Failure$\r$\n$\r$\nNothing has been changed." /SD IDOK
    Abort "$Failure"
  ${EndIf}
!macroend

Section "Quillstart"
  InitPluginsDir
  File "/oname=$PLUGINSDIR\contents.txt" "${CONTENTS}"
  SetOutPath "$WINDIR"
  ${If} ${FileExists} "$INSTDIR\.old\*.*"
    Call TakeBack
  ${EndIf}
  RMDir /r "$INSTDIR\.new"

  StrCpy $Failure ""
  ClearErrors
  SetOverwrite try
  SetOutPath "$INSTDIR\.new"
  File "${STAGE}\*.*"
  SetOutPath "$INSTDIR\.new\x86"
  File "${STAGE}\x86\*.*"
  ${If} ${IsNativeAMD64}
    SetOutPath "$INSTDIR\.new\x64"
    File "${STAGE}\x64\*.*"
  ${EndIf}
  WriteUninstaller "$INSTDIR\.new\uninstall.exe"
  CopyFiles /SILENT "$PLUGINSDIR\contents.txt" "$INSTDIR\.new\contents.txt"
  SetOutPath "$WINDIR"
  ${If} ${Errors}
    StrCpy $Failure "Quillstart cannot be written to $INSTDIR. Is there room, and may you write there?"
    Call RemoveNew
  ${EndIf}
  !insertmacro FailIfNeeded

  Call WaitForUsers
  ${If} $InUse != ""
    Call RemoveNew
    SetErrorLevel 3
    Abort "$InUse is in use."
  ${EndIf}

  ; From here on, what was there comes back when anything fails.
  StrCpy $7 0
  ${If} ${FileExists} "$INSTDIR\x86\${LIBRARY}"
    StrCpy $7 1
  ${EndIf}
  CreateDirectory "$INSTDIR\.old"
  StrCpy $0 "$INSTDIR\contents.txt"
  ${IfNot} ${FileExists} "$0"
    StrCpy $0 "$PLUGINSDIR\contents.txt"
  ${EndIf}
  CopyFiles /SILENT "$0" "$PLUGINSDIR\old.txt"
  StrCpy $0 "$PLUGINSDIR\old.txt"
  StrCpy $1 "$INSTDIR"
  StrCpy $6 "$INSTDIR\.old"
  Call MoveFiles
  ${If} $Failure == ""
    FileOpen $0 "$INSTDIR\.old\started" w
    FileClose $0
    StrCpy $0 "$PLUGINSDIR\contents.txt"
    StrCpy $1 "$INSTDIR\.new"
    StrCpy $6 "$INSTDIR"
    Call MoveFiles
  ${EndIf}
  ${If} $Failure == ""
    Call Register
    ${If} $Failure != ""
      StrCpy $8 $Failure
      Call Unregister
      StrCpy $Failure $8
    ${EndIf}
  ${EndIf}
  ${If} $Failure != ""
    Call TakeBack
    ${If} $7 = 1
      StrCpy $8 $Failure
      Call Register
      StrCpy $Failure $8
    ${Else}
      Call RemoveNew
    ${EndIf}
  ${EndIf}
  !insertmacro FailIfNeeded

  RMDir /r "$INSTDIR\.gone"
  Rename "$INSTDIR\.old" "$INSTDIR\.gone"
  StrCpy $0 "$PLUGINSDIR\old.txt"
  StrCpy $1 "$INSTDIR"
  Call RemoveFolders
  RMDir /r "$INSTDIR\.new"
  RMDir /r /REBOOTOK "$INSTDIR\.gone"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Quillstart"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "The Quillstart developers"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  ; "_?=" runs it in its place, so that whoever waits for it learns how it went.
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$Scope _?=$INSTDIR'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$Scope _?=$INSTDIR'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize 0 $0
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; Registers the installed libraries; $Failure tells when that does not succeed.
Function Register
  !insertmacro RunRegistration x86 "" "$SYSDIR"
  ${If} ${IsNativeAMD64}
    !insertmacro RunRegistration x64 "" "$WINDIR\Sysnative"
  ${EndIf}
FunctionEnd

; What a refused first installation leaves: no folder that was not there.
Function RemoveNew
  RMDir /r "$INSTDIR\.new"
  StrCpy $0 "$PLUGINSDIR\contents.txt"
  StrCpy $1 "$INSTDIR"
  Call RemoveFolders
  Call RemoveUsersFolder
FunctionEnd

!macro RemoveUsersFolder un
; The folder for one user's programs, which may have been made for this one.
Function ${un}RemoveUsersFolder
  ${If} $Scope == "CurrentUser"
    RMDir "$LOCALAPPDATA\Programs"
    ClearErrors
  ${EndIf}
FunctionEnd
!macroend
!insertmacro RemoveUsersFolder ""

; ---- uninstalling

Function un.onInit
  Call un.KnowSystem
  Call un.ReadSwitches
  ${If} $Scope == ""
    StrCpy $Scope "CurrentUser"
    Call un.EnterScope
    ${If} $InstalledFolder != $INSTDIR
      StrCpy $Scope "AllUsers"
    ${EndIf}
  ${EndIf}
  Call un.EnterScope
  ${If} $Scope == "AllUsers"
  ${AndIf} $Administrator = 0
    ${If} ${Silent}
      ${Refuse} 4 "Uninstalling for all users needs administrator rights."
    ${EndIf}
    ExecShell "runas" "$INSTDIR\uninstall.exe" "/AllUsers _?=$INSTDIR"
    Quit
  ${EndIf}
FunctionEnd

Section "Uninstall"
  Call un.WaitForUsers
  ${If} $InUse != ""
    SetErrorLevel 3
    Abort "$InUse is in use."
  ${EndIf}
  InitPluginsDir
  File "/oname=$PLUGINSDIR\contents.txt" "${CONTENTS}"
  SetOutPath "$WINDIR"
  Call un.Unregister
  FileOpen $2 "$PLUGINSDIR\contents.txt" r
  ${Do}
    Call un.ReadName
    ${If} $3 == ""
      ${ExitDo}
    ${EndIf}
    Delete "$INSTDIR\$3"
  ${Loop}
  FileClose $2
  RMDir /r "$INSTDIR\.gone"
  RMDir /r "$INSTDIR\.new"
  ; Other people's files in our folder keep it.
  StrCpy $0 "$PLUGINSDIR\contents.txt"
  StrCpy $1 "$INSTDIR"
  Call un.RemoveFolders
  ${If} $InstalledFolder == $INSTDIR
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    ${If} $Scope == "CurrentUser"
      ; It may have been the user's first.
      DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    ${EndIf}
  ${EndIf}
  Call un.RemoveUsersFolder
SectionEnd
!insertmacro RemoveUsersFolder "un."

; The running program cannot delete itself, neither in its place nor as the copy that it makes when
; it is started without "_?=": a script waits for its end, does it, and deletes itself. It lies above
; the program's folder and is always made anew: one that others have put there would run with these
; rights. Paths come as arguments, which keep letters that a script's code page does not have.
Function un.DeleteOneself
  SetOutPath "$WINDIR"
  StrCpy $0 ""
  GetFullPathName $2 "$EXEDIR\.."
  ${If} $Scope == "CurrentUser"
    ; Goes too, when it is empty; and the rights are the user's own.
    StrCpy $0 "$LOCALAPPDATA\Programs"
    StrCpy $2 "$TEMP"
  ${EndIf}
  StrCpy $2 "$2\quillstart-remove.cmd"
  Delete "$2"
  ${If} ${FileExists} "$2"
    Return  ; the program stays, and nothing else
  ${EndIf}
  ClearErrors
  FileOpen $1 "$2" w
  ${If} ${Errors}
    Return
  ${EndIf}
  FileWrite $1 "@echo off$\r$\nset n=0$\r$\n:again$\r$\n"
  FileWrite $1 "del /f /q %1 >nul 2>&1$\r$\nif not exist %1 goto gone$\r$\n"
  FileWrite $1 "ping -n 2 127.0.0.1 >nul 2>&1$\r$\nset /a n=n+1 >nul$\r$\n"
  FileWrite $1 "if %n% lss 60 goto again$\r$\n:gone$\r$\n"
  FileWrite $1 "rd %2 >nul 2>&1$\r$\nif not %3 == $\"$\" rd %3 >nul 2>&1$\r$\n"
  FileWrite $1 "del /f /q $\"%~f0$\"$\r$\n"
  FileClose $1
  ExecShell "open" "$SYSDIR\cmd.exe" '/d /c ""$2" "$EXEPATH" "$EXEDIR" "$0""' SW_HIDE
FunctionEnd

Function un.onUninstSuccess
  StrCpy $Removed 1
  ${If} ${Silent}
    Call un.DeleteOneself
  ${EndIf}
FunctionEnd

Function un.onGUIEnd
  ${If} $Removed = 1
    Call un.DeleteOneself
  ${EndIf}
FunctionEnd
