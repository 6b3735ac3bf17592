; Installer of Quarnel for one user: no administrator rights, silent with /S. With /SENDTO as well, or
; ticked by the user, Explorer's menu "Send to" has an entry for input files.
;
; Made by scripts/make-installer.sh, which defines
;   VERSION        as in project()
;   CONTENT        the folder to install
;   CONTENT_FILES  the list of what is in it, with checksums (see installed_files.nsh)
;   CONTENT_KB     its size
;   FILES_OF_1_0   the same for the installer of 1.0, which left no list
;   ICON, OUTPUT
;
; An upgrade removes what an installer wrote and nobody changed, then puts in what is not there. So
; an example that the user has edited stays, one that was deleted is there again, and what the new
; version no longer has goes. Programs are never mixed: when one is in use, or the folder has another
; of the same name, nothing is changed.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "MUI2.nsh"
!include "Sections.nsh"
!include "checksum.nsh"
!include "installed_files.nsh"
!include "recorded_buildings.nsh"

!define SEND_TO_ENTRY "$SENDTO\Quarnel Sheet.lnk"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarnel"

Name "Quarnel ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
ManifestLongPathAware true
InstallDir "$LOCALAPPDATA\Programs\Quarnel"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Quarnel"
VIAddVersionKey "FileDescription" "Quarnel installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Quarnel"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Quarnel.exe"
!define MUI_COMPONENTSPAGE_NODESC
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"
!include "installer_texts.nsh"

!insertmacro ChecksumFunctions ""
!insertmacro ChecksumFunctions "un."
!insertmacro InstalledFilesFunctions ""
!insertmacro InstalledFilesFunctions "un."

Var folderIsNew
Var wanted   ; path of a file whose owner is looked for
Var isOurs   ; whether it is an installer's
Var unpacked ; folder of the new files before they are put in place
Var written  ; handle of the new list

Section "Quarnel"
    SectionIn RO
    AddSize ${CONTENT_KB}
    Call MakeFolder
    Call ExtractLists
    Call WaitUntilNothingIsInUse
    Call RefuseOtherPrograms
    Call Unpack
    GetFunctionAddress $0 RemoveIfOurs
    Call ForEachFileOfEarlierVersions
    Call PutFilesInPlace
    Call Register
SectionEnd

Section /o "$(SEND_TO_TEXT)" SEND_TO
    CreateShortcut "${SEND_TO_ENTRY}" "$INSTDIR\QuarnelSheet.exe"
SectionEnd

; An upgrade keeps the entry that an earlier installation made.
Function .onInit
    ClearErrors
    ${GetParameters} $0
    ${GetOptions} $0 "/SENDTO" $1
    ${IfNot} ${Errors}
    ${OrIf} ${FileExists} "${SEND_TO_ENTRY}"
        !insertmacro SelectSection ${SEND_TO}
    ${EndIf}
FunctionEnd

; Ends without having changed anything: a message, or the exit code for who installs without
; questions.
!macro EndUnchanged MESSAGE EXIT_CODE
    SetOutPath "$TEMP"  ; a folder that is current cannot be removed
    ${IfThen} $folderIsNew == 1 ${|} RMDir "$INSTDIR" ${|}
    DetailPrint "${MESSAGE}"
    ${IfNot} ${Silent}
        MessageBox MB_OK|MB_ICONSTOP "${MESSAGE}"
    ${EndIf}
    SetErrorLevel ${EXIT_CODE}
    Abort
!macroend

!macro EndNotWritten
    !insertmacro EndUnchanged "$(NOT_WRITTEN_TEXT)" ${EXIT_NOT_WRITTEN}
!macroend

Function MakeFolder
    StrCpy $folderIsNew 0
    ${IfNot} ${FileExists} "$INSTDIR\*.*"
        StrCpy $folderIsNew 1
        CreateDirectory "$INSTDIR"
    ${EndIf}
FunctionEnd

Function ExtractLists
    InitPluginsDir
    File "/oname=$PLUGINSDIR\content.txt" "${CONTENT_FILES}"
    File "/oname=$PLUGINSDIR\1.0.txt" "${FILES_OF_1_0}"
FunctionEnd

; Calls the function at $0 for each file that an earlier installer may have written.
Function ForEachFileOfEarlierVersions
    Call FindListInFolder
    Call ForEachFile
    ReadRegStr $2 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ReadRegStr $3 HKCU "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} $2 == $INSTDIR
    ${AndIf} $3 == "1.0"
        StrCpy $1 "$PLUGINSDIR\1.0.txt"
        Call ForEachFile
    ${EndIf}
FunctionEnd

Function WaitUntilNothingIsInUse
    ${Do}
        StrCpy $obstacles ""
        GetFunctionAddress $0 NameIfInUse
        Call ForEachFileOfEarlierVersions
        ${IfThen} $obstacles == "" ${|} ${ExitDo} ${|}
        ${IfNot} ${Silent}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(IN_USE_TEXT)" IDRETRY again
        ${EndIf}
        !insertmacro EndUnchanged "$(UNCHANGED_IN_USE_TEXT)" ${EXIT_IN_USE}
      again:
    ${Loop}
FunctionEnd

; A program of the same name that is not the installer's would be mixed with the new version.
Function RefuseOtherPrograms
    StrCpy $obstacles ""
    StrCpy $1 "$PLUGINSDIR\content.txt"
    GetFunctionAddress $0 NameIfOtherProgram
    Call ForEachFile
    StrCpy $path "Uninstall.exe"
    Call NameIfOtherProgram
    Call FindListInFolder
    ${If} ${FileExists} "$INSTDIR\${INSTALLED_FILES}"
    ${AndIf} $1 != "$INSTDIR\${INSTALLED_FILES}"
        StrCpy $obstacles "$obstacles${INSTALLED_FILES}$\r$\n"
    ${EndIf}
    ${If} $obstacles != ""
        !insertmacro EndUnchanged "$(NOT_OURS_TEXT)" ${EXIT_NOT_OURS}
    ${EndIf}
FunctionEnd

Function NameIfOtherProgram
    System::Store "S"
    StrCpy $0 $path "" -4
    ${If} $0 == ".exe"
    ${AndIf} ${FileExists} "$INSTDIR\$path"
        StrCpy $wanted $path
        StrCpy $isOurs 0
        GetFunctionAddress $0 FindOwnerOfWanted
        Call ForEachFileOfEarlierVersions
        ${IfThen} $isOurs == 0 ${|} StrCpy $obstacles "$obstacles$wanted$\r$\n" ${|}
    ${EndIf}
    System::Store "L"
FunctionEnd

Function FindOwnerOfWanted
    ${If} $path == $wanted
        Call FormChecksum
        ${IfThen} $checksum == $expected ${|} StrCpy $isOurs 1 ${|}
    ${EndIf}
FunctionEnd

; All new files into a folder beside their places, so that a full disk ends here.
Function Unpack
    ClearErrors
    GetTempFileName $unpacked "$INSTDIR"
    ${If} ${Errors}
        !insertmacro EndNotWritten
    ${EndIf}
    Delete $unpacked
    CreateDirectory $unpacked
    SetOutPath $unpacked
    SetOverwrite try
    File /r "${CONTENT}/*.*"
    WriteUninstaller "$unpacked\Uninstall.exe"
    SetOutPath "$INSTDIR"
    ${If} ${Errors}
        RMDir /r $unpacked
        !insertmacro EndNotWritten
    ${EndIf}
FunctionEnd

Function PutFilesInPlace
    FileOpen $written "$INSTDIR\${INSTALLED_FILES}" w
    FileWrite $written "${INSTALLED_FILES_TITLE}$\r$\n"
    StrCpy $1 "$PLUGINSDIR\content.txt"
    GetFunctionAddress $0 PutInPlace
    Call ForEachFile
    StrCpy $path "Uninstall.exe"
    Call PutInPlace
    FileClose $written
    RMDir /r $unpacked
FunctionEnd

; Where a file stands already it is the user's and stays.
Function PutInPlace
    Push $0
    ${GetParent} "$INSTDIR\$path" $0
    CreateDirectory $0
    ClearErrors
    Rename "$unpacked\$path" "$INSTDIR\$path"
    ${If} ${Errors}
        DetailPrint "$(LEFT_TEXT)"
    ${Else}
        StrCpy $kind " "
        Call FormChecksum
        FileWrite $written "$checksum  $path$\r$\n"
    ${EndIf}
    Pop $0
FunctionEnd

; Only to a manual that the installer has put there.
!macro CreateManualShortcut FILE NAME
    StrCpy $wanted "${FILE}"
    StrCpy $isOurs 0
    StrCpy $1 "$INSTDIR\${INSTALLED_FILES}"
    GetFunctionAddress $0 FindOwnerOfWanted
    Call ForEachFile
    ${If} $isOurs == 1
        CreateShortcut "$SMPROGRAMS\Quarnel\${NAME}.lnk" "$INSTDIR\${FILE}"
    ${EndIf}
!macroend

Function Register
    CreateDirectory "$SMPROGRAMS\Quarnel"
    CreateShortcut "$SMPROGRAMS\Quarnel\Quarnel.lnk" "$INSTDIR\Quarnel.exe"
    CreateShortcut "$SMPROGRAMS\Quarnel\Quarnel Sheet.lnk" "$INSTDIR\QuarnelSheet.exe"
    Call RegisterRecordedBuildings
    !insertmacro CreateManualShortcut "manual.html" "Manual"
    !insertmacro CreateManualShortcut "manual.ja.html" "Manual (Japanese)"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quarnel"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Quarnel.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
FunctionEnd

Section "Uninstall"
    Call un.FindListInFolder
    Call un.WaitUntilNothingIsInUse
    GetFunctionAddress $0 un.RemoveIfOurs
    Call un.ForEachFile
    ${IfThen} $1 != "" ${|} Delete $1 ${|}
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    Call un.Unregister
SectionEnd

Function un.WaitUntilNothingIsInUse
    ${Do}
        StrCpy $obstacles ""
        GetFunctionAddress $0 un.NameIfInUse
        Call un.ForEachFile
        ${IfThen} $obstacles == "" ${|} ${ExitDo} ${|}
        ${IfNot} ${Silent}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(IN_USE_TEXT)" IDRETRY again
        ${EndIf}
        DetailPrint "$(UNCHANGED_IN_USE_TEXT)"
        SetErrorLevel ${EXIT_IN_USE}
        Abort
      again:
    ${Loop}
FunctionEnd

; What another folder's installation has registered since is not touched.
Function un.Unregister
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        Delete "$SMPROGRAMS\Quarnel\Quarnel.lnk"
        Delete "$SMPROGRAMS\Quarnel\Quarnel Sheet.lnk"
        Delete "${SEND_TO_ENTRY}"
        Call un.UnregisterRecordedBuildings
        Delete "$SMPROGRAMS\Quarnel\Manual.lnk"
        Delete "$SMPROGRAMS\Quarnel\Manual (Japanese).lnk"
        RMDir "$SMPROGRAMS\Quarnel"
        DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ${EndIf}
FunctionEnd
