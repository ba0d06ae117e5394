; What installer and uninstaller make sure of before they change anything.

!define ERROR_SHARING_VIOLATION 32
!define ERROR_ELEVATION_REQUIRED 740

; Silent, it must not wait for somebody to read why it cannot go on.
!macro RefuseWithoutRights
    UserInfo::GetAccountType
    Pop $R1
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/AllUsers" $R0
    ${IfNot} ${Errors}
    ${AndIf} ${Silent}
    ${AndIf} $R1 != "Admin"
    ${AndIf} $R1 != "Power"
        SetErrorLevel ${ERROR_ELEVATION_REQUIRED}
        Quit
    ${EndIf}
!macroend

; A program that runs cannot be opened for writing. It is never ended by force: that is its reader's to do.
!macro WAIT_FOR_READER PREFIX
Function ${PREFIX}WaitForReader
    ${DoWhile} ${FileExists} "$INSTDIR\${PROGRAM}"
        ClearErrors
        FileOpen $R0 "$INSTDIR\${PROGRAM}" a
        ${IfNot} ${Errors}
            FileClose $R0
            ${ExitDo}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "${PRODUCT_TITLE} is open. Close its window, then choose Retry." /SD IDCANCEL IDRETRY Again
        SetErrorLevel ${ERROR_SHARING_VIOLATION}
        Quit
        Again:
    ${Loop}
FunctionEnd
!macroend
!insertmacro WAIT_FOR_READER ""
!insertmacro WAIT_FOR_READER "un."
