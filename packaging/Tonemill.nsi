; The installer: for the user who runs it, without administrator's rights. Made by package.sh.
; Silent: /S, with /EXPLORER=0 without the entry in Explorer's menu, /STARTMENU=0 without that in the start
; menu, /D=FOLDER as the last argument, without quotes. The uninstaller: /S, with /SETTINGS=remove without
; the user's settings. A silent run that can't be done ends with 3 while the program is running.
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel user
SetCompressor /SOLID lzma
CRCCheck on
AllowSkipFiles off

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "MUI2.nsh"
!include "Sections.nsh"
!include "x64.nsh"
!include "${FILES}"

!define NAME "Zephtone Tonemill"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define MENU "$SMPROGRAMS\${NAME}"
!define SETTINGS "Software\Vantrel\Zephtone"

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tonemill"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey CompanyName "Vantrel"
VIAddVersionKey FileDescription "${NAME} installer"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Tonemill.exe"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs can't be replaced nor removed: Windows lets nobody write to its file. A copy that
; only half succeeded would be worse than none.
!macro LeaveWhileRunning FOLDER
    ${Do}
        StrCpy $1 0
        ${For} $2 1 5
            ${Select} $2
                ${Case} 1
                    StrCpy $3 "Tonemill.exe"
                ${Case} 2
                    StrCpy $3 "Millworker.exe"
                ${Case} 3
                    StrCpy $3 "ZtConfig.exe"
                ${Case} 4
                    StrCpy $3 "ZtSend.exe"
                ${Case} 5
                    StrCpy $3 "sdk\ZtCheck.exe"
            ${EndSelect}
            ${If} ${FileExists} "${FOLDER}\$3"
                ClearErrors
                FileOpen $0 "${FOLDER}\$3" a
                ${If} ${Errors}
                    StrCpy $1 1
                ${Else}
                    FileClose $0
                ${EndIf}
            ${EndIf}
        ${Next}
        ${If} $1 = 0
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME} is running. Close it to go on." /SD IDCANCEL IDRETRY +3
        SetErrorLevel 3
        Quit
    ${Loop}
!macroend

Section "${NAME}" SectionProgram
    SectionIn RO
    ; Of an earlier version nothing stays, wherever it was; its uninstaller keeps the settings.
    ReadRegStr $4 HKCU "${UNINSTALL}" "InstallLocation"
    ${If} $4 != ""
    ${AndIf} ${FileExists} "$4\Uninstall.exe"
        !insertmacro LeaveWhileRunning "$4" ; here one can be asked to close it
        ExecWait '"$4\Uninstall.exe" /S _?=$4' $0
        ${If} $0 <> 0
            SetErrorLevel $0
            Abort "The earlier version can't be removed."
        ${EndIf}
        Delete "$4\Uninstall.exe"
        RMDir "$4"
    ${EndIf}

    !insertmacro LeaveWhileRunning "$INSTDIR"
    SetOverwrite on
    !insertmacro InstallFiles
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\Uninstall.exe"

    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Tonemill.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Vantrel"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Entry in the start menu" SectionMenu
    SetOutPath "$INSTDIR"
    CreateDirectory "${MENU}"
    CreateShortCut "${MENU}\${NAME}.lnk" "$INSTDIR\Tonemill.exe"
    ${If} ${FileExists} "$INSTDIR\ZtConfig.exe"
        CreateShortCut "${MENU}\Settings of ${NAME}.lnk" "$INSTDIR\ZtConfig.exe"
    ${EndIf}
SectionEnd

Section "Entry in Explorer's menus" SectionExplorer
    ${If} ${FileExists} "$INSTDIR\ZtSend.exe"
        ExecWait '"$INSTDIR\ZtSend.exe" /register'
    ${EndIf}
SectionEnd

!macro LeaveOut OPTION SECTION
    ClearErrors
    ${GetOptions} $5 "/${OPTION}=" $0
    ${IfNot} ${Errors}
    ${AndIf} $0 == "0"
        !insertmacro UnselectSection ${SECTION}
    ${EndIf}
!macroend

Function .onInit
    SetRegView 64
    ${IfNot} ${RunningX64}
        MessageBox MB_OK|MB_ICONSTOP "${NAME} needs a 64-bit Windows." /SD IDOK
        SetErrorLevel 4
        Quit
    ${EndIf}
    ; An update puts back no entry that was left out, or taken away since.
    ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$0\Uninstall.exe"
        ReadRegStr $0 HKCU "Software\Classes\Directory\shell\ZtTonemill\command" ""
        ${If} $0 == ""
            !insertmacro UnselectSection ${SectionExplorer}
        ${EndIf}
        ${IfNot} ${FileExists} "${MENU}\*.lnk"
            !insertmacro UnselectSection ${SectionMenu}
        ${EndIf}
    ${EndIf}
    ${GetParameters} $5
    !insertmacro LeaveOut EXPLORER ${SectionExplorer}
    !insertmacro LeaveOut STARTMENU ${SectionMenu}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The program, its encoders and effects, and the help."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionMenu} "Start the program from the start menu."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionExplorer} "Convert the files and folders that are selected in Explorer."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function un.onInit
    SetRegView 64
    !insertmacro LeaveWhileRunning "$INSTDIR"
FunctionEnd

Section "Uninstall"
    ${If} ${FileExists} "$INSTDIR\ZtSend.exe"
        ExecWait '"$INSTDIR\ZtSend.exe" /unregister'
    ${EndIf}
    Delete "${MENU}\${NAME}.lnk"
    Delete "${MENU}\Settings of ${NAME}.lnk"
    RMDir "${MENU}"

    SetOutPath "$TEMP"
    !insertmacro RemoveFiles
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"
    ; Lists of files that wait for a moment; one that is there was left by a program that was killed.
    Delete "$APPDATA\Zephtone\ZtSend-*.tmp"
    Delete "$APPDATA\Zephtone\AddFilesToExistingTM.bin"
    RMDir "$APPDATA\Zephtone"
    DeleteRegKey HKCU "${UNINSTALL}"

    StrCpy $1 0
    ${GetParameters} $5
    ClearErrors
    ${GetOptions} $5 "/SETTINGS=" $0
    ${IfNot} ${Errors}
    ${AndIf} $0 == "remove"
        StrCpy $1 1
    ${Else}
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "Remove your settings and profiles, too?" /SD IDNO IDNO +2
        StrCpy $1 1
    ${EndIf}
    ${If} $1 = 1
        DeleteRegKey HKCU "${SETTINGS}"
        DeleteRegKey /ifempty HKCU "Software\Vantrel"
    ${EndIf}
SectionEnd
