; The setup program, for one user and without administrator's rights. ./package calls it with VERSION,
; OUTPUT and the folder GENERATED, in which lie Files.nsh and Types.nsh.
;
; Silently:  Tessivo-VERSION-setup.exe /S [/DESKTOP] [/AUTOSTART] [/TYPES] [/D=FOLDER]
;            Uninstall.exe /S [/DATA]      /DATA takes the playlist and the settings away, too
; The exit code is 0, or 1 or 2 when it was given up; then nothing has changed unless the disk is full.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel user
; Half a program is of no use.
AllowSkipFiles off

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
!define TRIAL "Tessivo-setup-trial"
!define QUERY_LIMITED_INFORMATION 0x1000
; The control panel lies over all other windows; what is asked while it is open has to be seen.
!define IN_FRONT "MB_TOPMOST|MB_SETFOREGROUND"
!define RUNNING "泰思维正在运行。按“确定”退出泰思维并继续。"
; Of a question that no window owns: MB_OKCANCEL, MB_ICONINFORMATION, MB_SYSTEMMODAL, MB_SETFOREGROUND.
!define EARLY 0x11041
!ifndef IDOK
  !define IDOK 1
!endif
!define HWND_TOPMOST -1
!define SWP_STAY 0x13  ; no size, no move, no activation

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
!define MUI_CUSTOMFUNCTION_GUIINIT comeToFront
!define MUI_CUSTOMFUNCTION_UNGUIINIT un.comeToFront
; Where the texts that come with NSIS do not fit.
!define MUI_WELCOMEPAGE_TEXT "此程序将引导您安装泰思维播放器。只为当前用户安装，不需要管理员权限，也不需要重新启动 Windows。$\r$\n$\r$\n如果已经安装了泰思维，它将被更新，播放列表和设置会保留。$\r$\n$\r$\n$_CLICK"
!define MUI_LICENSEPAGE_TEXT_BOTTOM "如果您接受许可证的条款，请点击 [我接受(I)] 继续安装。"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${GENERATED}/License.txt"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE leaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
!define MUI_PAGE_HEADER_SUBTEXT "选择您需要的组件。"
!define MUI_COMPONENTSPAGE_TEXT_TOP "请勾选您需要的组件，没有勾选的会被去掉。$_CLICK"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "SimpChinese"
; That of NSIS has quotation marks.
LangString ^CreateFolder 2052 "创建文件夹: "
FileErrorText "" "无法写入文件:$\r$\n$\r$\n$0$\r$\n$\r$\n请检查磁盘空间后点击 [重试]，或者点击 [取消] 停止安装。"
CompletedText "$ending"
; The program's own typeface.
SetFont /LANG=2052 "Microsoft YaHei UI" 9

Var access
Var asked
Var before
Var blocked
Var ending
Var extension
Var folder
Var handle
Var keep
Var left
Var problem
Var product
Var step
Var value
Var window

; Sets $blocked to the first program in $folder that cannot be written, as those that run cannot.
!macro tryProgram name
  ${If} $blocked == ""
  ${AndIf} ${FileExists} "$folder\${name}"
    ClearErrors
    FileOpen $handle "$folder\${name}" a
    ${If} ${Errors}
      StrCpy $blocked "$folder\${name}"
    ${Else}
      FileClose $handle
    ${EndIf}
  ${EndIf}
!macroend

!macro windows un
Function ${un}comeToFront
  System::Call "user32::SetWindowPos(p $HWNDPARENT, p ${HWND_TOPMOST}, i 0, i 0, i 0, i 0, i ${SWP_STAY})"
FunctionEnd
!macroend
!insertmacro windows ""
!insertmacro windows "un."

!macro leaving un doing
Function ${un}findBlocked
  StrCpy $blocked ""
  !insertmacro ForEachProgram tryProgram
FunctionEnd

; Sets $window to that of the Tessivo that runs from $folder, or 0: one of another folder is left alone.
Function ${un}findWindow
  FindWindow $window "" "${TRAY_TITLE}"
  ${If} $window = 0
    Return
  ${EndIf}
  StrCpy $0 0
  System::Call "user32::GetWindowThreadProcessId(p $window, *i .r0)"
  System::Call "kernel32::OpenProcess(i ${QUERY_LIMITED_INFORMATION}, i 0, i r0) p .r1"
  StrCpy $2 ""
  StrCpy $3 ${NSIS_MAX_STRLEN}
  System::Call "kernel32::QueryFullProcessImageNameW(p r1, i 0, w .r2, *i r3 r3)"
  System::Call "kernel32::CloseHandle(p r1)"
  ${If} $2 != "$folder\Tessivo.exe"
    StrCpy $window 0
  ${EndIf}
FunctionEnd

; Returns when all programs in $folder can be written. A Tessivo that runs there is asked to leave, and
; time is given for it; who runs anything else is asked to close it. Else gives up.
Function ${un}leavePrograms
  StrCpy $asked "no"
  retry:
  Call ${un}findBlocked
  ${If} $blocked == ""
    Return
  ${EndIf}
  Call ${un}findWindow
  ${If} $window <> 0
    ${If} $asked == "no"
      ${If} $HWNDPARENT <> 0
      ${OrIf} ${Silent}
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION|${IN_FRONT} "${RUNNING}" /SD IDOK IDOK agreed
      ${Else}
        System::Call "user32::MessageBoxW(p 0, w '${RUNNING}', w '${NAME} ${doing}', i ${EARLY}) i .r0"
        IntCmp $0 ${IDOK} agreed
      ${EndIf}
      SetErrorLevel 1
      Abort
      agreed:
      StrCpy $asked "yes"
    ${EndIf}
    System::Call "user32::PostMessageW(p $window, i ${WM_CLOSE}, p 0, p 0)"
  ${EndIf}
  ${If} $window <> 0
  ${OrIf} ${Silent}
    ${For} $step 1 ${LEAVING_STEPS}
      Sleep 100
      Call ${un}findBlocked
      ${If} $blocked == ""
        Return
      ${EndIf}
    ${Next}
  ${EndIf}
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION|${IN_FRONT} "$blocked 正在运行或无法写入。请退出泰思维，关闭屏保程序和它的设置窗口，并检查您是否有权写入该文件，然后重试。" /SD IDCANCEL IDRETRY retry
  SetErrorLevel 2
  Abort
FunctionEnd

; Before the first page, so that nobody finds out at the last one. What is started later, and what else is
; in use, is seen when the files' turn comes.
Function ${un}leaveEarly
  ${If} ${Silent}
    Return
  ${EndIf}
  StrCpy $folder $INSTDIR
  Call ${un}findWindow
  ${If} $window <> 0
    Call ${un}leavePrograms
  ${EndIf}
FunctionEnd
!macroend
!insertmacro leaving "" "安装"
!insertmacro leaving "un." "卸载"

; Sets $product to what $INSTDIR\Uninstall.exe says of itself.
Function readProduct
  StrCpy $product ""
  StrCpy $7 "$INSTDIR\Uninstall.exe"
  System::Call "version::GetFileVersionInfoSizeW(w r7, p 0) i .r0"
  ${If} $0 <> 0
    System::Alloc $0
    Pop $1
    StrCpy $5 0
    System::Call "version::GetFileVersionInfoW(w r7, i 0, i r0, p r1)"
    System::Call "version::VerQueryValueW(p r1, w '\StringFileInfo\080404b0\ProductName', *p .r3, *i .r4) i .r5"
    ${If} $5 <> 0
      System::Call "kernel32::lstrcpynW(w .r6, p r3, i r4)"
      StrCpy $product $6
    ${EndIf}
    System::Free $1
  ${EndIf}
FunctionEnd

; Fails when $INSTDIR cannot be written, or no folder be made in the nearest one that exists. Nothing of
; the trial stays. (To look at the errors' flag clears it.)
Function tryFolder
  StrCpy $folder $INSTDIR
  ClearErrors
  ${If} ${FileExists} "$folder\*.*"
    FileOpen $handle "$folder\${TRIAL}" w
    ${If} ${Errors}
      SetErrors
    ${Else}
      FileClose $handle
      Delete "$folder\${TRIAL}"
    ${EndIf}
    Return
  ${EndIf}
  ${Do}
    ${GetParent} $folder $folder
    ${If} $folder == ""
      SetErrors
      Return
    ${EndIf}
  ${LoopUntil} ${FileExists} "$folder\*.*"
  ClearErrors
  CreateDirectory "$folder\${TRIAL}"
  ${If} ${Errors}
    SetErrors
  ${Else}
    RMDir "$folder\${TRIAL}"
  ${EndIf}
FunctionEnd

; Sets $problem to what is wrong with $INSTDIR, and $before to the folder that Tessivo moves from, or
; nothing.
Function checkFolder
  StrCpy $problem ""
  Call tryFolder
  ${If} ${Errors}
    StrCpy $problem "无法写入 $INSTDIR。请选择您有权写入的文件夹。"
    Return
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
    Call readProduct
    ${If} $product != "${NAME}"
      StrCpy $problem "$INSTDIR 中已有另一个软件（那里的 Uninstall.exe 不是泰思维的）。请选择另一个文件夹。"
      Return
    ${EndIf}
  ${EndIf}
  ReadRegStr $before HKCU "${OWN_KEY}" "Folder"
  ${If} $before == $INSTDIR
  ${OrIfNot} ${FileExists} "$before\Tessivo.exe"
  ${OrIfNot} ${FileExists} "$before\Uninstall.exe"
    StrCpy $before ""
  ${EndIf}
FunctionEnd

Function leaveFolderPage
  Call checkFolder
  ${If} $problem != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION|${IN_FRONT} "$problem"
    Abort
  ${EndIf}
  ${If} $before != ""
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION|${IN_FRONT} "泰思维已经安装在 $before。$\r$\n按“确定”把它搬到 $INSTDIR：播放列表和设置复制过去（那里已有的不动），原来的程序被卸载，原来的播放列表和设置也留在原处。" IDOK agreed
    Abort
    agreed:
  ${EndIf}
FunctionEnd

; bring FILES FROM TO: unless there are such ones.
!macro bring files from to
  ${If} ${FileExists} "${from}\${files}"
  ${AndIfNot} ${FileExists} "${to}\${files}"
    CopyFiles /SILENT "${from}\${files}" "${to}"
  ${EndIf}
!macroend

Section "泰思维播放器（必需）" sectionProgram
  SectionIn RO
  SetDetailsPrint none
  Call checkFolder
  SetDetailsPrint both
  ${If} $problem != ""
    DetailPrint "$problem"
    SetErrorLevel 2
    Abort
  ${EndIf}
  StrCpy $folder $INSTDIR
  Call leavePrograms
  ${If} $before != ""
    StrCpy $folder $before
    Call leavePrograms
  ${EndIf}
  ; What an older version brought along; the list, the settings and Engines.ini stay.
  ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
    ExecWait '"$INSTDIR\Uninstall.exe" /S /UPGRADE _?=$INSTDIR' $value
    ${If} $value <> 0
      MessageBox MB_OK|MB_ICONSTOP|${IN_FRONT} "无法移除 $INSTDIR 中原来的版本。请退出泰思维和屏保程序，然后重试。" /SD IDOK
      SetErrorLevel 2
      Abort
    ${EndIf}
  ${EndIf}
  ClearErrors
  SetOutPath "$INSTDIR"
  !insertmacro InstallFiles
  ${If} $before != ""
    !insertmacro bring "SysConfig*" "$before" "$INSTDIR"
    !insertmacro bring "Engines.ini" "$before" "$INSTDIR"
    !insertmacro bring "*.ini" "$before\SSP" "$INSTDIR\SSP"
  ${EndIf}
  ; The user's choice of engines survives.
  SetOverwrite off
  !insertmacro InstallChoices
  SetOverwrite on
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP|${IN_FRONT} "无法写入 $INSTDIR。请换一个文件夹，或检查磁盘空间。" /SD IDOK
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
  ; It sees that the program lives elsewhere now, and keeps the data.
  ${If} $before != ""
    ExecWait '"$before\Uninstall.exe" /S _?=$before'
    Delete "$before\Uninstall.exe"
    RMDir "$before"
  ${EndIf}
SectionEnd

Section /o "桌面快捷方式" sectionDesktop
  CreateShortcut "$DESKTOP\泰思维播放器.lnk" "$INSTDIR\Tessivo.exe"
SectionEnd

Section /o "随 Windows 启动" sectionAutostart
  WriteRegStr HKCU "${RUN_KEY}" "Tessivo" '"$INSTDIR\Tessivo.exe"'
SectionEnd

; Offered where the system lists programs for a type. What a double click does is chosen elsewhere: in
; Windows or in the program's settings.
!macro addType extension
  WriteRegStr HKCU "${CLASSES}\${extension}\OpenWithProgids" "${PROGRAM_ID}" ""
  WriteRegStr HKCU "${OWN_KEY}\Capabilities\FileAssociations" "${extension}" "${PROGRAM_ID}"
!macroend
!macro removeType extension
  DeleteRegValue HKCU "${CLASSES}\${extension}\OpenWithProgids" "${PROGRAM_ID}"
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "${CLASSES}\${extension}\OpenWithProgids"
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
    MessageBox MB_OK|MB_ICONSTOP|${IN_FRONT} "泰思维需要 Windows 10 或更新的 Windows。" /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  StrCpy $ending "已完成"
  ; From the registry it comes with a backslash at its end, which is not seen when it is read here.
  StrCpy $INSTDIR $INSTDIR
  Call leaveEarly
  !insertmacro choose ${sectionAutostart} "/AUTOSTART" "${RUN_KEY}" "Tessivo"
  !insertmacro choose ${sectionTypes} "/TYPES" "Software\RegisteredApplications" "Tessivo"
  ClearErrors
  ${GetOptions} $CMDLINE "/DESKTOP" $value
  ${IfNot} ${Errors}
  ${OrIf} ${FileExists} "$DESKTOP\泰思维播放器.lnk"
    !insertmacro SelectSection ${sectionDesktop}
  ${EndIf}
FunctionEnd

Function un.onInit
  StrCpy $ending "已完成"
  StrCpy $INSTDIR $INSTDIR
  Call un.leaveEarly
FunctionEnd

; /UPGRADE: the setup of another version is about to bring the program again.
Section "Uninstall"
  StrCpy $folder $INSTDIR
  Call un.leavePrograms
  !insertmacro DeleteFiles
  ClearErrors
  ${GetOptions} $CMDLINE "/UPGRADE" $value
  ${If} ${Errors}
    Call un.handTypesBack
    Call un.removeTraces
    Call un.removeData
    Call un.sayWhatStays
  ${EndIf}
SectionEnd

; The types that the settings dialog has taken for the program of this folder have nobody then, and
; Windows asks. They are the machine's, or the user's where the user has such keys.
!macro handTypeBackIn root
  ReadRegStr $value ${root} "${CLASSES}\Tessivo$extension\shell\open\command" ""
  ${If} $value == '"$INSTDIR\Tessivo.exe" %1'
    ReadRegStr $value ${root} "${CLASSES}\$extension" ""
    ${If} $value == "Tessivo$extension"
      DeleteRegValue ${root} "${CLASSES}\$extension" ""
      DeleteRegKey /ifnosubkeys /ifnovalues ${root} "${CLASSES}\$extension"
    ${EndIf}
    DeleteRegKey ${root} "${CLASSES}\Tessivo$extension"
    ReadRegStr $value ${root} "${CLASSES}\Tessivo$extension\shell\open\command" ""
    ${If} $value != ""
      StrCpy $left "yes"
    ${EndIf}
  ${EndIf}
!macroend
Function un.handTypeBack
  !insertmacro handTypeBackIn HKCU
  !insertmacro handTypeBackIn HKLM
FunctionEnd
!macro handTypeBack type
  StrCpy $extension "${type}"
  Call un.handTypeBack
!macroend
Function un.handTypesBack
  StrCpy $left "no"
  !insertmacro ForEachType handTypeBack
  !insertmacro typesHaveChanged
  ${If} $left == "yes"
    MessageBox MB_OK|MB_ICONINFORMATION|${IN_FRONT} "一些文件类型仍登记为由泰思维打开，因为只有管理员可以更改它们。在文件上按右键，用“打开方式”选择别的程序即可。" /SD IDOK
  ${EndIf}
FunctionEnd

; Of an installation that lives in another folder now nothing is touched.
Function un.removeTraces
  ReadRegStr $value HKCU "${OWN_KEY}" "Folder"
  ${If} $value != $INSTDIR
  ${AndIf} ${FileExists} "$value\Tessivo.exe"
    StrCpy $keep "yes"
    Return
  ${EndIf}
  StrCpy $keep ""
  !insertmacro removeDesktop
  !insertmacro removeAutostart
  !insertmacro removeTypes
  Delete "$SMPROGRAMS\泰思维\泰思维播放器.lnk"
  Delete "$SMPROGRAMS\泰思维\使用说明.lnk"
  Delete "$SMPROGRAMS\泰思维\卸载泰思维.lnk"
  RMDir "$SMPROGRAMS\泰思维"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "${OWN_KEY}"
  Delete "$LOCALAPPDATA\Tessivo\Tessivo.log"
  Delete "$LOCALAPPDATA\Tessivo\Tessivo.log.1"
FunctionEnd

; Sets $access to a sentence when SysConfig is a database of Microsoft Access, which is not of our making.
Function un.findAccessFile
  StrCpy $access ""
  ClearErrors
  FileOpen $handle "$INSTDIR\SysConfig" r
  ${IfNot} ${Errors}
    FileSeek $handle 4
    FileRead $handle $value 16
    FileClose $handle
    StrCpy $value $value 15
    ${If} $value == "Standard Jet DB"
    ${OrIf} $value == "Standard ACE DB"
      StrCpy $access "$\r$\n原有的 Microsoft Access 数据库 SysConfig 总是保留。"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function un.askForData
  ClearErrors
  ${GetOptions} $CMDLINE "/DATA" $value
  ${If} ${Errors}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2|${IN_FRONT} "是否同时删除播放列表和设置？$\r$\n选择“否”时，它们（SysConfig、Engines.ini 和屏保程序的设置）保留在 $INSTDIR 中，重新安装到该文件夹后可以继续使用。$access" /SD IDNO IDYES agreed
    StrCpy $keep "yes"
    agreed:
  ${EndIf}
FunctionEnd

; Engines.ini comes with the program, so that there is always something to ask about. Of what begins with
; SysConfig only what the program makes goes, and not a copy that the user has made.
Function un.removeData
  Delete "$INSTDIR\Tessivo.log"
  Delete "$INSTDIR\Tessivo.log.1"
  Call un.findAccessFile
  ${If} $keep == ""
    Call un.askForData
  ${EndIf}
  ${If} $keep == ""
    !insertmacro DeleteChoices
    Delete "$INSTDIR\SSP\时钟.ini"
    Delete "$INSTDIR\SSP\图片欣赏.ini"
    Delete "$LOCALAPPDATA\Tessivo\时钟.ini"
    Delete "$LOCALAPPDATA\Tessivo\图片欣赏.ini"
    ${If} $access == ""
      Delete "$INSTDIR\SysConfig"
    ${EndIf}
    Delete "$INSTDIR\SysConfig-*"
    Delete "$INSTDIR\SysConfig.db*"
    Delete "$INSTDIR\SysConfig.damaged-*"
    Delete "$INSTDIR\SysConfig.unread-*"
  ${EndIf}
  RMDir "$LOCALAPPDATA\Tessivo"
  RMDir "$INSTDIR\SSP"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
FunctionEnd

Function un.sayWhatStays
  ${DirState} "$INSTDIR" $value
  ${If} $value = 1
    ${If} $keep == ""
      StrCpy $ending "$INSTDIR 中还有您自己的文件，所以没有删除这个文件夹。"
    ${Else}
      StrCpy $ending "播放列表、设置和您自己的文件保留在 $INSTDIR 中。"
    ${EndIf}
  ${EndIf}
FunctionEnd
