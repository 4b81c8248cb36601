; The installer, for the user who runs it: no administrator is asked. packaging/windows/build makes it:
;
;   makensis -DVERSION=... -DSTAGE=FOLDER -DFILES=FILE -DOUT=FILE vireo.nsi
;
; STAGE is the folder that is installed, FILES removes what lies in it. What is written to the registry
; for .con files is what platform/FileAssociation.h says; the program writes and removes the same.

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestSupportedOS Win10
ManifestDPIAware true

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define CLASSES "Software\Classes"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vireo"

Name "Vireo ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Vireo"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
BrandingText " "

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Vireo"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Vireo ${VERSION} Setup"
VIAddVersionKey LegalCopyright "Copyright (c) 2026 the Vireo developers"

!define MUI_ICON "vireo.ico"
!define MUI_UNICON "${MUI_ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\vireo.exe"
!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!define SHCNE_ASSOCCHANGED 0x08000000

!macro TellShell
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

; Which program opens .con files by Vireo's class.
!macro WriteProgram PROGRAM
  WriteRegStr HKCU "${CLASSES}\Vireo.con\DefaultIcon" "" "${PROGRAM},0"
  WriteRegStr HKCU "${CLASSES}\Vireo.con\shell\open\command" "" '"${PROGRAM}" "%1"'
!macroend

; Notes which other copy of Vireo has .con, unless this one takes back what that one took from it.
!macro KeepCopy
  ReadRegStr $0 HKCU "${CLASSES}\Vireo.con\DefaultIcon" ""
  StrCpy $0 $0 -2
  ReadRegStr $1 HKCU "${CLASSES}\Vireo.con" "BeforeCopy"
  ${If} $0 != "$INSTDIR\vireo.exe"
    ${If} $0 == ""
    ${OrIf} $1 == "$INSTDIR\vireo.exe"
      DeleteRegValue HKCU "${CLASSES}\Vireo.con" "BeforeCopy"
    ${Else}
      WriteRegStr HKCU "${CLASSES}\Vireo.con" "BeforeCopy" $0
    ${EndIf}
  ${EndIf}
!macroend

; What .con had is put back; nothing is touched where somebody else has taken it since.
!macro UndoAssociation
  ReadRegStr $0 HKCU "${CLASSES}\.con" ""
  ReadRegStr $1 HKCU "${CLASSES}\Vireo.con" "BeforeCopy"
  ${If} $0 == "Vireo.con"
  ${AndIf} $1 != ""
  ${AndIf} ${FileExists} "$1"
    !insertmacro WriteProgram "$1"
    DeleteRegValue HKCU "${CLASSES}\Vireo.con" "BeforeCopy"
  ${Else}
    !insertmacro UndoAll
  ${EndIf}
  !insertmacro TellShell
!macroend

!macro UndoAll
  ${If} $0 == "Vireo.con"
    ReadRegStr $1 HKCU "${CLASSES}\Vireo.con" "Before"
    ${If} $1 == ""
      DeleteRegValue HKCU "${CLASSES}\.con" ""
    ${Else}
      WriteRegStr HKCU "${CLASSES}\.con" "" $1
    ${EndIf}
  ${EndIf}
  DeleteRegValue HKCU "${CLASSES}\.con\OpenWithProgids" "Vireo.con"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.con\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.con"
  DeleteRegKey HKCU "${CLASSES}\Vireo.con"
!macroend

; A program that runs can be neither replaced nor removed.
!macro EndWhileItRuns
  ${If} ${FileExists} "$INSTDIR\vireo.exe"
    ClearErrors
    FileOpen $0 "$INSTDIR\vireo.exe" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONEXCLAMATION "Vireo is running. Close it and try again." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section "Vireo" Program
  SectionIn RO
  !insertmacro EndWhileItRuns
  ; What an older version has and this one has not shall go.
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    ExecWait '"$INSTDIR\uninstall.exe" /S /KEEPSETTINGS _?=$INSTDIR'
  ${EndIf}
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Vireo"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\vireo.exe,0"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The Vireo developers"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
SectionEnd

Section "Entry in the start menu" StartMenu
  CreateDirectory "$SMPROGRAMS\Vireo"
  CreateShortCut "$SMPROGRAMS\Vireo\Vireo.lnk" "$INSTDIR\vireo.exe"
  CreateShortCut "$SMPROGRAMS\Vireo\Vireo manual.lnk" "$INSTDIR\docs\index.html"
SectionEnd

Section "Open .con files with Vireo" Association
  ReadRegStr $0 HKCU "${CLASSES}\.con" ""
  ${If} $0 == "Vireo.con"
    !insertmacro KeepCopy
  ${Else}
    DeleteRegValue HKCU "${CLASSES}\Vireo.con" "BeforeCopy"
    ${If} $0 == ""
      DeleteRegValue HKCU "${CLASSES}\Vireo.con" "Before"
    ${Else}
      WriteRegStr HKCU "${CLASSES}\Vireo.con" "Before" $0
    ${EndIf}
  ${EndIf}
  WriteRegStr HKCU "${CLASSES}\Vireo.con" "" "Scanner test result"
  !insertmacro WriteProgram "$INSTDIR\vireo.exe"
  WriteRegStr HKCU "${CLASSES}\.con\OpenWithProgids" "Vireo.con" ""
  WriteRegStr HKCU "${CLASSES}\.con" "" "Vireo.con"
  !insertmacro TellShell
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Program} "The viewer, vireo-cli, the manual and samples."
  !insertmacro MUI_DESCRIPTION_TEXT ${StartMenu} "Vireo and its manual in the start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${Association} "A double click on a test result opens Vireo. It can be switched on and off in Vireo too."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Section Uninstall
  !insertmacro EndWhileItRuns
  Delete "$SMPROGRAMS\Vireo\Vireo.lnk"
  Delete "$SMPROGRAMS\Vireo\Vireo manual.lnk"
  RMDir "$SMPROGRAMS\Vireo"

  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/KEEPSETTINGS" $1
  ${If} ${Errors}
    ; The class may be that of a copy which lies elsewhere.
    ReadRegStr $0 HKCU "${CLASSES}\Vireo.con\DefaultIcon" ""
    ${If} $0 == "$INSTDIR\vireo.exe,0"
      !insertmacro UndoAssociation
    ${EndIf}
    Delete "$APPDATA\Vireo\Vireo.ini"
    Delete "$LOCALAPPDATA\Vireo\recent-files.txt"
    Delete "$LOCALAPPDATA\Vireo\Vireo.log"
    Delete "$LOCALAPPDATA\Vireo\Vireo.old.log"
    RMDir "$APPDATA\Vireo"
    RMDir "$LOCALAPPDATA\Vireo"
  ${EndIf}
  DeleteRegKey HKCU "${UNINSTALL}"

  !include "${FILES}"
  ; What opening a sample has left beside it.
  RMDir /r "$INSTDIR\samples"
  Delete "$INSTDIR\Vireo.log"
  Delete "$INSTDIR\Vireo.old.log"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
