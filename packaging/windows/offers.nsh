; The program offers itself under "Open with" for the kinds of books, and is nobody's default by that.

!define CLASSES "Software\Classes"
!define OPEN_COMMAND '"$INSTDIR\${PROGRAM}" "%1"'
!define SHCNE_ASSOCCHANGED 0x08000000
!define APPLICATION_KEY "${CLASSES}\Applications\${PROGRAM}"

!macro OfferKind KIND NAME
    WriteRegStr SHCTX "${CLASSES}\${PRODUCT_TITLE}.${KIND}" "" "${NAME}"
    WriteRegStr SHCTX "${CLASSES}\${PRODUCT_TITLE}.${KIND}\DefaultIcon" "" "$INSTDIR\${PROGRAM},0"
    WriteRegStr SHCTX "${CLASSES}\${PRODUCT_TITLE}.${KIND}\shell\open\command" "" '${OPEN_COMMAND}'
!macroend

!macro OfferFor ENDING KIND
    WriteRegStr SHCTX "${APPLICATION_KEY}\SupportedTypes" ".${ENDING}" ""
    WriteRegStr SHCTX "${CLASSES}\.${ENDING}\OpenWithProgids" "${PRODUCT_TITLE}.${KIND}" ""
!macroend

!macro WithdrawFor ENDING KIND
    DeleteRegValue SHCTX "${CLASSES}\.${ENDING}\OpenWithProgids" "${PRODUCT_TITLE}.${KIND}"
    DeleteRegKey /ifnosubkeys /ifnovalues SHCTX "${CLASSES}\.${ENDING}\OpenWithProgids"
    DeleteRegKey /ifnosubkeys /ifnovalues SHCTX "${CLASSES}\.${ENDING}"
!macroend

!macro ForEachEnding DO
    !insertmacro ${DO} txt text
    !insertmacro ${DO} rtf richtext
    !insertmacro ${DO} htm html
    !insertmacro ${DO} html html
    !insertmacro ${DO} xhtml html
!macroend

!macro TellDesktop
    System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

!macro OfferProgram
    WriteRegStr SHCTX "${APPLICATION_KEY}" "FriendlyAppName" "${PRODUCT_TITLE}"
    WriteRegStr SHCTX "${APPLICATION_KEY}\shell\open\command" "" '${OPEN_COMMAND}'
    !insertmacro OfferKind text "Text book"
    !insertmacro OfferKind richtext "Rich text book"
    !insertmacro OfferKind html "HTML book"
    !insertmacro ForEachEnding OfferFor
    !insertmacro TellDesktop
!macroend

!macro WithdrawProgram
    !insertmacro ForEachEnding WithdrawFor
    DeleteRegKey SHCTX "${CLASSES}\${PRODUCT_TITLE}.text"
    DeleteRegKey SHCTX "${CLASSES}\${PRODUCT_TITLE}.richtext"
    DeleteRegKey SHCTX "${CLASSES}\${PRODUCT_TITLE}.html"
    DeleteRegKey SHCTX "${APPLICATION_KEY}"
    !insertmacro TellDesktop
!macroend
