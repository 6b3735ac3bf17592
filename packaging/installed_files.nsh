; Which files in the folder are the installer's: those that an installer wrote there and that nobody
; has changed since. Everything else is the user's and is neither replaced nor removed.
;
; The installer leaves a list of what it wrote. A line of it, as of the other lists here, has a
; file's SHA-256 as 64 digits, two characters, and its path below the folder; the second of the two
; is "~" where the link time of a program is left out of the sum. Lines that begin with a semicolon
; are for readers.

!define INSTALLED_FILES "installed-files.txt"
!define INSTALLED_FILES_TITLE "; Files that the installer of Quarnel wrote here, with their SHA-256."

; Exit codes, for installing without questions.
!define EXIT_IN_USE 3
!define EXIT_NOT_OURS 4
!define EXIT_NOT_WRITTEN 5

Var path       ; of the file in hand, below $INSTDIR
Var expected   ; the checksum that a list has for it
Var kind       ; "~" when that leaves out the link time
Var checksum   ; the one that it has
Var obstacles  ; lines that name what stands in the way

!macro InstalledFilesFunctions un

; Calls the function at the address $0 for each file of the list $1, with $path, $expected and $kind.
Function ${un}ForEachFile
    Push $2
    Push $3
    FileOpen $2 $1 r
    ${Do}
        ClearErrors
        FileRead $2 $3
        ${IfThen} ${Errors} ${|} ${ExitDo} ${|}
        StrCpy $expected $3 64
        StrCpy $kind $3 1 65
        StrCpy $path $3 "" 66
        Call ${un}CutLineEnd
        StrCpy $3 $3 1
        ${If} $3 != ";"
            Call $0
        ${EndIf}
    ${Loop}
    FileClose $2
    Pop $3
    Pop $2
FunctionEnd

; Cuts the end of the line from $path.
Function ${un}CutLineEnd
    Push $0
    ${Do}
        StrCpy $0 $path 1 -1
        ${If} $0 != "$\r"
        ${AndIf} $0 != "$\n"
            ${ExitDo}
        ${EndIf}
        StrCpy $path $path -1
    ${Loop}
    Pop $0
FunctionEnd

; Sets $1 to the list that an installer left in the folder; to nothing when there is none, or when the
; file of this name is somebody else's.
Function ${un}FindListInFolder
    Push $0
    StrCpy $1 "$INSTDIR\${INSTALLED_FILES}"
    FileOpen $0 $1 r
    FileRead $0 $1 ${NSIS_MAX_STRLEN}
    FileClose $0
    StrLen $0 "${INSTALLED_FILES_TITLE}"
    StrCpy $1 $1 $0
    ${If} $1 == "${INSTALLED_FILES_TITLE}"
        StrCpy $1 "$INSTDIR\${INSTALLED_FILES}"
    ${Else}
        StrCpy $1 ""
    ${EndIf}
    Pop $0
FunctionEnd

; Names the file among the obstacles when it is the installer's and another program has it in use. A
; program that runs, a file that another works on, cannot be opened for writing; one that cannot even
; be read counts as well, for nobody knows whose it is.
Function ${un}NameIfInUse
    ${IfNot} ${FileExists} "$INSTDIR\$path"
        Return
    ${EndIf}
    !if "${un}" != ""
        ${IfThen} $path == "Uninstall.exe" ${|} Return ${|}  ; is what runs here
    !endif
    Push $0
    Call ${un}FormChecksum
    ${If} $checksum == $expected
    ${OrIf} $checksum == ""
        ClearErrors
        FileOpen $0 "$INSTDIR\$path" a
        ${If} ${Errors}
            StrCpy $obstacles "$obstacles$path$\r$\n"
        ${Else}
            FileClose $0
        ${EndIf}
    ${EndIf}
    Pop $0
FunctionEnd

; Removes the file when it is the installer's, and the folders that are empty then.
Function ${un}RemoveIfOurs
    ${IfNot} ${FileExists} "$INSTDIR\$path"
        Return
    ${EndIf}
    Call ${un}FormChecksum
    ${If} $checksum == $expected
        Delete "$INSTDIR\$path"
        Call ${un}RemoveEmptyFolders
    ${Else}
        DetailPrint "$(LEFT_TEXT)"
    ${EndIf}
FunctionEnd

; The folders in $path, from the innermost outwards, as far as nothing is left in them.
Function ${un}RemoveEmptyFolders
    Push $0
    Push $1
    StrCpy $0 $path
    ${DoUntil} $0 == ""
        StrCpy $1 $0 1 -1
        StrCpy $0 $0 -1
        ${If} $1 == "\"
            RMDir "$INSTDIR\$0"
        ${EndIf}
    ${Loop}
    Pop $1
    Pop $0
FunctionEnd

!macroend
