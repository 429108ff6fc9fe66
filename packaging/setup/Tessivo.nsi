; The setup program, for one user and without administrator's rights. ./package calls it with VERSION,
; OUTPUT and the folder GENERATED, in which lie Files.nsh and Types.nsh.
;
; Silently:  Tessivo-VERSION-setup.exe /S [/DESKTOP] [/AUTOSTART] [/TYPES] [/D=FOLDER]
;            Uninstall.exe /S [/DATA]      /DATA takes the playlist and the settings away, too
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel user

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "Sections.nsh"
!include "WinVer.nsh"
!include "${GENERATED}/Files.nsh"
!include "${GENERATED}/Types.nsh"

!define NAME "Tessivo 泰思维"
!define OWN_KEY "Software\Tessivo"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessivo"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define CLASSES "Software\Classes"
!define PROGRAM_ID "Tessivo.Media"
; The title of the window that ends the program, without a question, when it is closed.
!define TRAY_TITLE "play27182831415"
!define LEAVING_STEPS 100  ; of 100 ms

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tessivo"
InstallDirRegKey HKCU "${OWN_KEY}" "Folder"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=2052 "ProductName" "${NAME}"
VIAddVersionKey /LANG=2052 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=2052 "FileDescription" "泰思维播放器安装程序"
VIAddVersionKey /LANG=2052 "CompanyName" "Tessivo"
VIAddVersionKey /LANG=2052 "LegalCopyright" "MIT License"

!define MUI_ICON "${GENERATED}/Setup.ico"
!define MUI_UNICON "${GENERATED}/Setup.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${GENERATED}/Side.bmp"
!define MUI_UNWELCOMEFINISHPAGE_BITMAP "${GENERATED}/Side.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\Tessivo.exe"
!define MUI_FINISHPAGE_RUN_TEXT "运行泰思维"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${GENERATED}/License.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"
; The program's own typeface.
SetFont /LANG=2052 "Microsoft YaHei UI" 9

Var asked
Var file
Var machine
Var step
Var used
Var value
Var window

; Asks a Tessivo that runs from this folder to leave, and waits until it has: the file of a running
; program cannot be written.
!macro programIsUsed result
  StrCpy ${result} "no"
  ${If} ${FileExists} "$INSTDIR\Tessivo.exe"
    ClearErrors
    FileOpen $file "$INSTDIR\Tessivo.exe" a
    ${If} ${Errors}
      StrCpy ${result} "yes"
    ${Else}
      FileClose $file
    ${EndIf}
  ${EndIf}
!macroend

!macro leaveProgram un
Function ${un}leaveProgram
  StrCpy $asked "no"
  retry:
  !insertmacro programIsUsed $used
  ${If} $used == "no"
    Return
  ${EndIf}
  FindWindow $window "" "${TRAY_TITLE}"
  ${If} $window != 0
    ${If} $asked == "no"
      MessageBox MB_OKCANCEL|MB_ICONINFORMATION "泰思维正在运行。按“确定”退出泰思维并继续。" /SD IDOK IDOK agreed
      SetErrorLevel 1
      Abort
      agreed:
      StrCpy $asked "yes"
    ${EndIf}
    System::Call "user32::PostMessageW(p $window, i ${WM_CLOSE}, p 0, p 0)"
  ${EndIf}
  ${For} $step 1 ${LEAVING_STEPS}
    Sleep 100
    !insertmacro programIsUsed $used
    ${If} $used == "no"
      Return
    ${EndIf}
  ${Next}
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "无法写入 $INSTDIR\Tessivo.exe。请先退出泰思维，并检查您是否有权写入该文件夹。" /SD IDCANCEL IDRETRY retry
  SetErrorLevel 2
  Abort
FunctionEnd
!macroend
!insertmacro leaveProgram ""
!insertmacro leaveProgram "un."

Section "泰思维播放器（必需）" sectionProgram
  SectionIn RO
  Call leaveProgram
  ; What an older version brought along; the list, the settings and Engines.ini stay.
  ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
    ExecWait '"$INSTDIR\Uninstall.exe" /S /UPGRADE _?=$INSTDIR'
  ${EndIf}
  ClearErrors
  SetOutPath "$INSTDIR"
  !insertmacro InstallFiles
  ; The user's choice of engines survives.
  SetOverwrite off
  !insertmacro InstallChoices
  SetOverwrite on
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "无法写入 $INSTDIR。请换一个文件夹，或检查磁盘空间。" /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  WriteRegStr HKCU "${OWN_KEY}" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Tessivo.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Tessivo"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $value $step $step
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $value
  CreateDirectory "$SMPROGRAMS\泰思维"
  CreateShortcut "$SMPROGRAMS\泰思维\泰思维播放器.lnk" "$INSTDIR\Tessivo.exe"
  CreateShortcut "$SMPROGRAMS\泰思维\使用说明.lnk" "$INSTDIR\Help\FunctionIntroduce.htm"
  CreateShortcut "$SMPROGRAMS\泰思维\卸载泰思维.lnk" "$INSTDIR\Uninstall.exe"
SectionEnd

Section /o "桌面快捷方式" sectionDesktop
  CreateShortcut "$DESKTOP\泰思维播放器.lnk" "$INSTDIR\Tessivo.exe"
SectionEnd

Section /o "随 Windows 启动" sectionAutostart
  WriteRegStr HKCU "${RUN_KEY}" "Tessivo" '"$INSTDIR\Tessivo.exe"'
SectionEnd

; Offered where the system lists programs for a type; a type that nobody has opens with Tessivo at once.
; Nothing is taken from another program.
!macro addType extension
  WriteRegStr HKCU "${CLASSES}\${extension}\OpenWithProgids" "${PROGRAM_ID}" ""
  WriteRegStr HKCU "${OWN_KEY}\Capabilities\FileAssociations" "${extension}" "${PROGRAM_ID}"
  ReadRegStr $value HKCU "${CLASSES}\${extension}" ""
  ReadRegStr $machine HKLM "${CLASSES}\${extension}" ""
  ${If} "$value$machine" == ""
    WriteRegStr HKCU "${CLASSES}\${extension}" "" "${PROGRAM_ID}"
  ${EndIf}
!macroend
!macro removeType extension
  DeleteRegValue HKCU "${CLASSES}\${extension}\OpenWithProgids" "${PROGRAM_ID}"
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "${CLASSES}\${extension}\OpenWithProgids"
  ReadRegStr $value HKCU "${CLASSES}\${extension}" ""
  ${If} $value == "${PROGRAM_ID}"
    DeleteRegValue HKCU "${CLASSES}\${extension}" ""
  ${EndIf}
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "${CLASSES}\${extension}"
!macroend
!macro typesHaveChanged
  System::Call "shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)"
!macroend

Section /o "在“打开方式”中列出" sectionTypes
  WriteRegStr HKCU "${CLASSES}\${PROGRAM_ID}" "" "泰思维媒体文件"
  WriteRegStr HKCU "${CLASSES}\${PROGRAM_ID}\DefaultIcon" "" "$INSTDIR\TessivoMedia.ico"
  WriteRegStr HKCU "${CLASSES}\${PROGRAM_ID}\shell\open\command" "" '"$INSTDIR\Tessivo.exe" "%1"'
  WriteRegStr HKCU "${OWN_KEY}\Capabilities" "ApplicationName" "${NAME}"
  WriteRegStr HKCU "${OWN_KEY}\Capabilities" "ApplicationDescription" "在指定屏幕上自动播放视频和音频列表。"
  WriteRegStr HKCU "Software\RegisteredApplications" "Tessivo" "${OWN_KEY}\Capabilities"
  !insertmacro ForEachType addType
  !insertmacro typesHaveChanged
SectionEnd

!macro removeDesktop
  Delete "$DESKTOP\泰思维播放器.lnk"
!macroend
!macro removeAutostart
  DeleteRegValue HKCU "${RUN_KEY}" "Tessivo"
!macroend
!macro removeTypes
  ReadRegStr $value HKCU "${CLASSES}\${PROGRAM_ID}" ""
  ${If} $value != ""
    !insertmacro ForEachType removeType
    DeleteRegKey HKCU "${CLASSES}\${PROGRAM_ID}"
    DeleteRegKey HKCU "${OWN_KEY}\Capabilities"
    DeleteRegValue HKCU "Software\RegisteredApplications" "Tessivo"
    !insertmacro typesHaveChanged
  ${EndIf}
!macroend

; What is not chosen is taken away, so that setting up once more changes the choice.
Section -notChosen
  ${IfNot} ${SectionIsSelected} ${sectionDesktop}
    !insertmacro removeDesktop
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${sectionAutostart}
    !insertmacro removeAutostart
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${sectionTypes}
    !insertmacro removeTypes
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${sectionProgram} "播放器、两个屏幕保护程序、使用说明和开始菜单中的快捷方式。"
  !insertmacro MUI_DESCRIPTION_TEXT ${sectionDesktop} "在桌面上放置泰思维的快捷方式。"
  !insertmacro MUI_DESCRIPTION_TEXT ${sectionAutostart} "您登录 Windows 时自动启动泰思维。"
  !insertmacro MUI_DESCRIPTION_TEXT ${sectionTypes} "在视频和音频文件的“打开方式”和 Windows 的默认应用设置中列出泰思维，不改变已有的默认程序。"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; choose SECTION SWITCH KEY VALUE: chosen by the switch, or because it was chosen the last time.
!macro choose section switch key value
  ClearErrors
  ${GetOptions} $CMDLINE "${switch}" $value
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${section}
  ${EndIf}
  ReadRegStr $value HKCU "${key}" "${value}"
  ${If} $value != ""
    !insertmacro SelectSection ${section}
  ${EndIf}
!macroend

Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "泰思维需要 Windows 10 或更新的 Windows。" /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  !insertmacro choose ${sectionAutostart} "/AUTOSTART" "${RUN_KEY}" "Tessivo"
  !insertmacro choose ${sectionTypes} "/TYPES" "Software\RegisteredApplications" "Tessivo"
  ClearErrors
  ${GetOptions} $CMDLINE "/DESKTOP" $value
  ${IfNot} ${Errors}
  ${OrIf} ${FileExists} "$DESKTOP\泰思维播放器.lnk"
    !insertmacro SelectSection ${sectionDesktop}
  ${EndIf}
FunctionEnd

; /UPGRADE: the setup of another version is about to bring the program again.
Section "Uninstall"
  Call un.leaveProgram
  !insertmacro DeleteFiles
  ClearErrors
  ${GetOptions} $CMDLINE "/UPGRADE" $value
  ${If} ${Errors}
    Call un.removeTraces
  ${EndIf}
SectionEnd

Function un.removeTraces
  !insertmacro DeleteChoices
  !insertmacro removeDesktop
  !insertmacro removeAutostart
  !insertmacro removeTypes
  Delete "$SMPROGRAMS\泰思维\泰思维播放器.lnk"
  Delete "$SMPROGRAMS\泰思维\使用说明.lnk"
  Delete "$SMPROGRAMS\泰思维\卸载泰思维.lnk"
  RMDir "$SMPROGRAMS\泰思维"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "${OWN_KEY}"
  Delete "$INSTDIR\Tessivo.log"
  Delete "$INSTDIR\Tessivo.log.1"
  Delete "$LOCALAPPDATA\Tessivo\Tessivo.log"
  Delete "$LOCALAPPDATA\Tessivo\Tessivo.log.1"
  RMDir "$LOCALAPPDATA\Tessivo"
  Delete "$INSTDIR\SSP\时钟.ini"
  Delete "$INSTDIR\SSP\图片欣赏.ini"
  RMDir "$INSTDIR\SSP"
  Delete "$INSTDIR\Uninstall.exe"
  ${If} ${FileExists} "$INSTDIR\SysConfig*"
    ClearErrors
    ${GetOptions} $CMDLINE "/DATA" $value
    ${If} ${Errors}
      MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "是否同时删除播放列表和设置？$\r$\n选择“否”时，它们保留在 $INSTDIR 中，重新安装到该文件夹后可以继续使用。" /SD IDNO IDNO keep
    ${EndIf}
    Delete "$INSTDIR\SysConfig*"
    keep:
  ${EndIf}
  RMDir "$INSTDIR"
FunctionEnd
