; What the installer and the uninstaller say of their own, in English and Japanese. Windows' language
; decides; another language reads English.

!macro Text NAME ENGLISH JAPANESE
    LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
    LangString ${NAME} ${LANG_JAPANESE} "${JAPANESE}"
!macroend

!insertmacro Text SEND_TO_TEXT \
    "'Send to' entry for input files" \
    "入力ファイル用の「送る」メニュー"
!insertmacro Text RECORDED_BUILDING_TEXT \
    "Recorded building" \
    "建物の記録"
!insertmacro Text NOT_WRITTEN_TEXT \
    "The files cannot be written to $INSTDIR. Nothing was changed." \
    "$INSTDIR にファイルを書き込めません。何も変更していません。"
!insertmacro Text IN_USE_TEXT \
    "These files of Quarnel are in use:$\r$\n$\r$\n$obstacles$\r$\nClose the programs that use them, then choose Retry." \
    "Quarnel の次のファイルが使用中です:$\r$\n$\r$\n$obstacles$\r$\n使用中のプログラムを閉じてから、再試行してください。"
!insertmacro Text UNCHANGED_IN_USE_TEXT \
    "In use, so nothing was changed:$\r$\n$obstacles" \
    "使用中のため、何も変更していません:$\r$\n$obstacles"
!insertmacro Text NOT_OURS_TEXT \
    "These files in $INSTDIR are not as an installer of Quarnel has written them:$\r$\n$\r$\n$obstacles$\r$\nMove them away, or choose another folder. Nothing was changed." \
    "$INSTDIR の次のファイルは、Quarnel のインストーラーが書き込んだものではありません:$\r$\n$\r$\n$obstacles$\r$\n移動するか、別のフォルダーを選んでください。何も変更していません。"
!insertmacro Text LEFT_TEXT \
    "Left as it is: $path" \
    "そのまま残しました: $path"
