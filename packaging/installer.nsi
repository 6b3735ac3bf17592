; Installer of Quarnel for one user: no administrator rights, silent with /S.
; Made by scripts/package.sh, which defines VERSION, CONTENT (the folder to install), OUTPUT and
; FILE_LIST (the uninstaller's list of what was installed).

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include "MUI2.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarnel"

Name "Quarnel ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Quarnel"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Quarnel"
VIAddVersionKey "FileDescription" "Quarnel installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Quarnel"

!define MUI_ICON "${CONTENT}/../quarnel.ico"
!define MUI_UNICON "${CONTENT}/../quarnel.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Quarnel.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section
    SetOutPath "$INSTDIR"
    File /r "${CONTENT}/*.*"
    WriteUninstaller "$INSTDIR\Uninstall.exe"

    CreateDirectory "$SMPROGRAMS\Quarnel"
    CreateShortcut "$SMPROGRAMS\Quarnel\Quarnel.lnk" "$INSTDIR\Quarnel.exe"
    CreateShortcut "$SMPROGRAMS\Quarnel\Manual.lnk" "$INSTDIR\manual.html"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quarnel"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Quarnel.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    ; Only what was installed, and the reports of runs on the examples: a model that somebody put
    ; into the folder stays.
    !include "${FILE_LIST}"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"

    Delete "$SMPROGRAMS\Quarnel\Quarnel.lnk"
    Delete "$SMPROGRAMS\Quarnel\Manual.lnk"
    RMDir "$SMPROGRAMS\Quarnel"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
