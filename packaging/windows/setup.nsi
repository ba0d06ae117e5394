; The installer for Windows, and its uninstaller. docs/packages.md lists their switches.
; From the command line of makensis: PRODUCT, the texts made by CMake; FOLDER of the program; ICON; PICTURE for the last
; page, as high as that is on a screen of 192 dpi; SETUP, which it makes.
Target amd64-unicode
SetCompressor /SOLID lzma
!include "${PRODUCT}"

!define PROGRAM "${PRODUCT_TITLE}.exe"
!define HELP_FILE "${PRODUCT_TITLE}.hlp"
!define DATA_FILE "${PRODUCT_TITLE}.dat"
!define UNINSTALLER "Uninstall.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT_TITLE}"

; Without an administrator's rights it installs for the user alone; with them it asks. An update goes where the version
; before it is.
!define MULTIUSER_MUI
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_INSTDIR "${PRODUCT_TITLE}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

Name "${PRODUCT_TITLE}"
OutFile "${SETUP}"
BrandingText "${PRODUCT_TITLE} ${PRODUCT_VERSION}"
SpaceTexts none
ManifestDPIAware true
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight

VIProductVersion "${PRODUCT_VERSION}.0"
VIFileVersion "${PRODUCT_VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "${PRODUCT_TITLE}"
VIAddVersionKey /LANG=0 "ProductVersion" "${PRODUCT_VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${PRODUCT_VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "${PRODUCT_TITLE} Setup"
VIAddVersionKey /LANG=0 "CompanyName" "${PRODUCT_COMPANY}"
VIAddVersionKey /LANG=0 "LegalCopyright" "${PRODUCT_COPYRIGHT}"
VIAddVersionKey /LANG=0 "Comments" "${PRODUCT_COMMENTS}"

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartReader
!insertmacro MUI_PAGE_FINISH

!define MUI_COMPONENTSPAGE_NODESC
!define MUI_COMPONENTSPAGE_TEXT_TOP "Your books stay untouched in any case. Your history, bookmarks and settings stay, too, \
    unless you tick them here."
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!include "offers.nsh"
!include "checks.nsh"

; Installing

Function .onInit
    !insertmacro RefuseWithoutRights
    StrCpy $R0 $INSTDIR ; of /D=, which goes before what is chosen below
    !insertmacro MULTIUSER_INIT
    ${If} $R0 != ""
        StrCpy $INSTDIR $R0
    ${EndIf}
FunctionEnd

Section "-Program" SectionProgram
    Call WaitForReader
    SetOutPath $INSTDIR
    File "${FOLDER}/${PROGRAM}"
    File "${FOLDER}/${HELP_FILE}"
    File "${FOLDER}/Welcome.txt"
    File "${FOLDER}/License.txt"
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    CreateShortcut "$SMPROGRAMS\${PRODUCT_TITLE}.lnk" "$INSTDIR\${PROGRAM}" "" "" 0 SW_SHOWNORMAL "" \
        "${PRODUCT_DESCRIPTION}"
    !insertmacro OfferProgram
    Call WriteUninstallKey
SectionEnd

; What Windows shows in its list of programs.
Function WriteUninstallKey
    StrCpy $R0 '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode'
    SectionGetSize ${SectionProgram} $R1
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT_TITLE}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${PRODUCT_VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM},0"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PRODUCT_COMPANY}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "URLInfoAbout" "${PRODUCT_WEB_SITE}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" $R0
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" "$R0 /S"
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "VersionMajor" ${PRODUCT_VERSION_MAJOR}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "VersionMinor" ${PRODUCT_VERSION_MINOR}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $R1 ; KiB
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
FunctionEnd

; By the desktop, as its user: a reader that runs as administrator would start a data file beside the program, which
; nobody else could write.
Function StartReader
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\${PROGRAM}"'
FunctionEnd

; Uninstalling

Section "un.${PRODUCT_TITLE}" SectionUninstall
    SectionIn RO
    Call un.WaitForReader
    Delete "$INSTDIR\${PROGRAM}"
    Delete "$INSTDIR\${HELP_FILE}"
    Delete "$INSTDIR\Welcome.txt"
    Delete "$INSTDIR\License.txt"
    Delete "$INSTDIR\${DATA_FILE}.lock" ; of a program that was killed
    Delete "$INSTDIR\${UNINSTALLER}"
    Delete "$SMPROGRAMS\${PRODUCT_TITLE}.lnk"
    !insertmacro WithdrawProgram
    Call un.RemoveAnnouncement
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd

Section /o "un.History, bookmarks and settings" SectionData
    SetShellVarContext current ; of all users' data only that of this one can be reached
    Delete "$INSTDIR\${DATA_FILE}"
    Delete "$INSTDIR\${DATA_FILE}.*.new" ; of a program that was killed while it wrote
    Delete "$APPDATA\${PRODUCT_TITLE}\${DATA_FILE}"
    Delete "$APPDATA\${PRODUCT_TITLE}\${DATA_FILE}.*.new"
    Delete "$APPDATA\${PRODUCT_TITLE}\${DATA_FILE}.lock"
    RMDir "$APPDATA\${PRODUCT_TITLE}"
SectionEnd

Section "-un.Folder"
    RMDir "$INSTDIR" ; stays if anything is in it
SectionEnd

Function un.onInit
    !insertmacro RefuseWithoutRights
    StrCpy $R0 $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    StrCpy $INSTDIR $R0 ; this one, whichever was installed last
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/RemoveData" $R1
    ${IfNot} ${Errors}
        SectionSetFlags ${SectionData} ${SF_SELECTED}
    ${EndIf}
FunctionEnd

; Where the program notes its folder and version when an administrator runs it: in the registry of 32-bit programs, with
; an empty key in the other. Only if that is this installation.
Function un.RemoveAnnouncement
    SetRegView 32
    ReadRegStr $R0 HKLM "Software\${PRODUCT_COMPANY}\${PRODUCT_TITLE}" ""
    ${If} $R0 == $INSTDIR
        DeleteRegKey HKLM "Software\${PRODUCT_COMPANY}\${PRODUCT_TITLE}"
        DeleteRegKey /ifnosubkeys /ifnovalues HKLM "Software\${PRODUCT_COMPANY}"
        SetRegView 64
        DeleteRegKey /ifnosubkeys /ifnovalues HKLM "Software\${PRODUCT_COMPANY}\${PRODUCT_TITLE}"
        DeleteRegKey /ifnosubkeys /ifnovalues HKLM "Software\${PRODUCT_COMPANY}"
    ${EndIf}
    SetRegView 64
FunctionEnd
