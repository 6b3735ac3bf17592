; Recorded buildings (.qhm) are opened by QuarnelSheet.exe, for this user. A program that the user has
; chosen for them before stays the chosen one; QuarnelSheet is then among those that Explorer offers.

!define QHM_TYPE "Quarnel.RecordedBuilding"
!define CLASSES "Software\Classes"
!define SHCNE_ASSOCCHANGED 0x08000000

Function RegisterRecordedBuildings
    Push $0
    WriteRegStr HKCU "${CLASSES}\${QHM_TYPE}" "" "$(RECORDED_BUILDING_TEXT)"
    WriteRegStr HKCU "${CLASSES}\${QHM_TYPE}\DefaultIcon" "" "$INSTDIR\QuarnelSheet.exe,0"
    WriteRegStr HKCU "${CLASSES}\${QHM_TYPE}\shell\open\command" "" '"$INSTDIR\QuarnelSheet.exe" "%1"'
    WriteRegStr HKCU "${CLASSES}\.qhm\OpenWithProgids" "${QHM_TYPE}" ""
    ReadRegStr $0 HKCU "${CLASSES}\.qhm" ""
    ${If} $0 == ""
        WriteRegStr HKCU "${CLASSES}\.qhm" "" "${QHM_TYPE}"
    ${EndIf}
    System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
    Pop $0
FunctionEnd

Function un.UnregisterRecordedBuildings
    Push $0
    DeleteRegKey HKCU "${CLASSES}\${QHM_TYPE}"
    ReadRegStr $0 HKCU "${CLASSES}\.qhm" ""
    ${If} $0 == "${QHM_TYPE}"
        DeleteRegValue HKCU "${CLASSES}\.qhm" ""
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\.qhm\OpenWithProgids" "${QHM_TYPE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.qhm\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.qhm"
    System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
    Pop $0
FunctionEnd
