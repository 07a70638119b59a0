; The installer, for the user who starts it alone: no rights of an administrator are asked for. Made by packaging/windows/build,
; which defines VERSION, LISTS (install.nsh, uninstall.nsh, panel.bmp), ICON and OUTPUT. Settings and records stand in
; %LOCALAPPDATA%\corvane and are neither made nor taken away here.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
SetCompressorDictSize 64
ManifestDPIAware true
RequestExecutionLevel user
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinVer.nsh

Name "Corvane"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Corvane"
InstallDirRegKey HKCU "Software\Corvane" "Folder"
BrandingText "Corvane ${VERSION}"
; A name that no other program of the same folder has.
!define UNINSTALLER "uninstall-corvane.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvane"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${LISTS}/panel.bmp"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin\corvane.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"
!insertmacro MUI_LANGUAGE "English"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "Corvane"
VIAddVersionKey /LANG=1033 "FileDescription" "Corvane ${VERSION}, installer"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "LegalCopyright" ""

LangString FINDS ${LANG_SIMPCHINESE} "查找重复文件"
LangString FINDS ${LANG_ENGLISH} "Finds duplicate files"
LangString RUNS ${LANG_SIMPCHINESE} "Corvane 正在运行，请先关闭它。"
LangString RUNS ${LANG_ENGLISH} "Corvane is running. Please close it first."
LangString OLD ${LANG_SIMPCHINESE} "这个程序需要 64 位的 Windows 10 或更新的版本。"
LangString OLD ${LANG_ENGLISH} "This program needs 64-bit Windows 10 or later."
LangString LEFT ${LANG_SIMPCHINESE} "无法卸载以前的版本，没有安装。"
LangString LEFT ${LANG_ENGLISH} "The earlier version could not be uninstalled; nothing was installed."
LangString STAYS ${LANG_SIMPCHINESE} "您的设置、清单和记录没有删除，留在："
LangString STAYS ${LANG_ENGLISH} "Your settings, lists and records were not removed and stay in:"

; A program that runs cannot be written to.
!macro REFUSE_WHILE_RUNNING PROGRAM
    ${If} ${FileExists} "$INSTDIR\bin\${PROGRAM}"
        ClearErrors
        FileOpen $0 "$INSTDIR\bin\${PROGRAM}" a
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(RUNS)" /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend
!macro REFUSE_WHILE_IT_RUNS
    !insertmacro REFUSE_WHILE_RUNNING "corvane.exe"
    !insertmacro REFUSE_WHILE_RUNNING "corvane-console.exe"
!macroend

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "$(OLD)" /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
FunctionEnd

Section
    !insertmacro REFUSE_WHILE_IT_RUNS
    ; What an earlier version has installed, and this one has not, goes.
    ${If} ${FileExists} "$INSTDIR\${UNINSTALLER}"
        ClearErrors
        ExecWait '"$INSTDIR\${UNINSTALLER}" /S _?=$INSTDIR' $0
        ${If} ${Errors}
        ${OrIf} $0 <> 0
            MessageBox MB_OK|MB_ICONSTOP "$(LEFT)" /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${EndIf}
    !include "${LISTS}/install.nsh"
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    SetOutPath "$INSTDIR\bin"
    CreateShortcut "$SMPROGRAMS\Corvane.lnk" "$INSTDIR\bin\corvane.exe" "" "" "" SW_SHOWNORMAL "" "$(FINDS)"
    WriteRegStr HKCU "Software\Corvane" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Corvane"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bin\corvane.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section Uninstall
    !insertmacro REFUSE_WHILE_IT_RUNS
    SetOutPath "$TEMP"
    !include "${LISTS}/uninstall.nsh"
    Delete "$INSTDIR\${UNINSTALLER}"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Corvane.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    DeleteRegKey HKCU "Software\Corvane"
    ${If} ${FileExists} "$LOCALAPPDATA\corvane\*"
        DetailPrint "$(STAYS)"
        DetailPrint "$LOCALAPPDATA\corvane"
    ${EndIf}
SectionEnd
