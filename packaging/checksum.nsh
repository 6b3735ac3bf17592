; SHA-256 of files, formed by Windows.

!macro ChecksumFunctions un

; The bytes at $2, $1 of them, are a program's: sets the time of its linking, and the checksum of its
; header that depends on it, to 0.
Function ${un}ClearLinkTime
    System::Call '*$2(&i2 .r3, &v58, i .r4)'
    IntOp $5 $1 - 92
    ${If} $3 != 23117  ; "MZ"
    ${OrIf} $4 < 64
    ${OrIf} $4 > $5
        Return
    ${EndIf}
    IntPtrOp $5 $2 + $4
    System::Call '*$5(&v8, i 0)'
    System::Call '*$5(&v88, i 0)'
FunctionEnd

; Sets $checksum to the SHA-256 of the file $path below $INSTDIR, 64 hexadecimal digits; to nothing
; when it cannot be read. With $kind "~" the link time of a program counts as 0.
Function ${un}FormChecksum
    System::Store "S"
    StrCpy $checksum ""
    ClearErrors
    FileOpen $0 "$INSTDIR\$path" r
    IfErrors done
    FileSeek $0 0 END $1
    FileSeek $0 0 SET
    IntOp $3 $1 + 64  ; room for the part of a header that ClearLinkTime looks at first
    System::Alloc $3
    Pop $2
    System::Call 'kernel32::ReadFile(p r0, p r2, i r1, *i .r3, p 0)'
    FileClose $0
    ${If} $kind == "~"
        Call ${un}ClearLinkTime
    ${EndIf}
    System::Alloc 32
    Pop $3
    System::Call 'bcrypt::BCryptOpenAlgorithmProvider(*p .r4, w "SHA256", p 0, i 0) i .r5'
    System::Call 'bcrypt::BCryptHash(p r4, p 0, i 0, p r2, i r1, p r3, i 32) i .r5'
    System::Call 'bcrypt::BCryptCloseAlgorithmProvider(p r4, i 0)'
    ${If} $5 == 0
        ; Digits alone, in one line.
        System::Call 'crypt32::CryptBinaryToStringW(p r3, i 32, i 0x4000000c, w .s, *i ${NSIS_MAX_STRLEN})'
        Pop $checksum
    ${EndIf}
    System::Free $3
    System::Free $2
  done:
    System::Store "L"
FunctionEnd

!macroend
