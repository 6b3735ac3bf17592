; Installs as the installer of 1.0 did: it overwrites what is there and leaves no list. What it does
; not do here, shortcuts and messages, no test asks for.

Unicode true
Target amd64-unicode
Name "Quarnel 1.0"
OutFile "${OUTPUT}"
RequestExecutionLevel user
SilentInstall silent

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quarnel"

Section
    SetOutPath "$INSTDIR"
    File /r "${CONTENT}/*.*"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "1.0"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
SectionEnd
