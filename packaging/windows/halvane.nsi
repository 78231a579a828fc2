; SPDX-License-Identifier: MIT
; The installer: for one user, without an administrator, in English and Arabic.
; In  VERSION   5.3.9
;     FOLDER    what is installed
;     LISTS     folder of the lists that are made from it: files.nsh, stored.nsh, remove.nsh, folders.nsh
;     SIZE      of it all [KB]
;     OUTPUT    the installer to write
; Options of the installer: /S (no window), /D=FOLDER; of the uninstaller: /S, and /STORED removes the stored files too.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WinVer.nsh

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Halvane"

Name "Halvane ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Halvane"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
BrandingText " "

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN "$INSTDIR\halvane.exe"
!define MUI_LANGDLL_REGISTRY_ROOT HKCU
!define MUI_LANGDLL_REGISTRY_KEY "${ENTRY}"
!define MUI_LANGDLL_REGISTRY_VALUENAME "Language"

!insertmacro MUI_PAGE_LICENSE "${FOLDER}\LICENSE"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Arabic"
!insertmacro MUI_RESERVEFILE_LANGDLL

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_ENGLISH} ProductName "Halvane"
VIAddVersionKey /LANG=${LANG_ENGLISH} ProductVersion "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} FileVersion "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} FileDescription "Setup of Halvane"
VIAddVersionKey /LANG=${LANG_ENGLISH} CompanyName "The Halvane developers"
VIAddVersionKey /LANG=${LANG_ENGLISH} LegalCopyright "MIT licence"

LangString ProgramName ${LANG_ENGLISH} "Halvane"
LangString ProgramName ${LANG_ARABIC} "برنامج Halvane"
LangString ProgramTold ${LANG_ENGLISH} "The program, its alerts, and the command line program halvane-report."
LangString ProgramTold ${LANG_ARABIC} "البرنامج و تنبيهاته، و برنامج سطر الأوامر halvane-report."
LangString MenuName ${LANG_ENGLISH} "Start menu"
LangString MenuName ${LANG_ARABIC} "قائمة ابدأ"
LangString MenuTold ${LANG_ENGLISH} "Halvane in the start menu."
LangString MenuTold ${LANG_ARABIC} "إضافة البرنامج إلى قائمة ابدأ."
LangString StartName ${LANG_ENGLISH} "Alerts at log-on"
LangString StartName ${LANG_ARABIC} "التنبيهات عند بدء التشغيل"
LangString StartTold ${LANG_ENGLISH} "Starts the prayer alerts with Windows. The panel Alerts can do this later."
LangString StartTold ${LANG_ARABIC} "تشغيل تنبيهات الصلاة مع بدء ويندوز. و يمكن ذلك من لوحة التنبيهات لاحقا."
LangString StoredName ${LANG_ENGLISH} "My settings and files"
LangString StoredName ${LANG_ARABIC} "إعداداتي و ملفاتي"
LangString StoredTold ${LANG_ENGLISH} "Removes the settings, places, profiles and reports that are in the program's folder. Cannot be undone."
LangString StoredTold ${LANG_ARABIC} "حذف الإعدادات و المواقع و مجموعات القواعد و التقارير التي في مجلد البرنامج، و لا رجعة فيه."
LangString NotWindows10 ${LANG_ENGLISH} "Halvane needs Windows 10 or later."
LangString NotWindows10 ${LANG_ARABIC} "يحتاج البرنامج إلى ويندوز 10 أو أحدث."
LangString StillRuns ${LANG_ENGLISH} "Halvane or its alerts are running. Close them (the alerts by the menu of their icon beside the clock) and try again."
LangString StillRuns ${LANG_ARABIC} "البرنامج أو تنبيهاته تعمل الآن. أغلقها (التنبيهات من قائمة أيقونتها بجانب الساعة) ثم أعد المحاولة."

; A program that runs cannot be opened for writing.
!macro REQUIRE_CLOSED NAME
  ${Do}
    ClearErrors
    ${IfNot} ${FileExists} "$INSTDIR\${NAME}"
      ${Break}
    ${EndIf}
    FileOpen $0 "$INSTDIR\${NAME}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(StillRuns)" /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Quit
  ${Loop}
!macroend

!macro REQUIRE_ALL_CLOSED
  !insertmacro REQUIRE_CLOSED "halvane.exe"
  !insertmacro REQUIRE_CLOSED "alert63.exe"
  !insertmacro REQUIRE_CLOSED "halvane-report.exe"
  !insertmacro REQUIRE_CLOSED "halvane-paper.exe"
!macroend

Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "$(NotWindows10)" /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Section "$(ProgramName)" Program
  SectionIn RO
  !insertmacro REQUIRE_ALL_CLOSED
  SetOverwrite on
  !include "${LISTS}/files.nsh"
  ; Stored files that are there already are the user's and stay.
  SetOverwrite off
  !include "${LISTS}/stored.nsh"
  SetOverwrite on
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Halvane"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "The Halvane developers"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\halvane.exe"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

Section "$(MenuName)" Menu
  SetOutPath "$INSTDIR" ; a shortcut's working folder
  CreateShortcut "$SMPROGRAMS\Halvane.lnk" "$INSTDIR\halvane.exe"
SectionEnd

Section /o "$(StartName)" Start
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMSTARTUP\Halvane.lnk" "$INSTDIR\alert63.exe"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Program} "$(ProgramTold)"
  !insertmacro MUI_DESCRIPTION_TEXT ${Menu} "$(MenuTold)"
  !insertmacro MUI_DESCRIPTION_TEXT ${Start} "$(StartTold)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Section "un.$(ProgramName)" un.Program
  SectionIn RO
  !insertmacro REQUIRE_ALL_CLOSED
  Delete "$SMPROGRAMS\Halvane.lnk"
  Delete "$SMSTARTUP\Halvane.lnk"
  !include "${LISTS}/remove.nsh"
  Delete "$INSTDIR\uninstall.exe"
  DeleteRegKey HKCU "${ENTRY}"
SectionEnd

; By their names: whatever else lies in the folder is not the program's.
Section /o "un.$(StoredName)" un.Stored
  !include "${LISTS}/removestored.nsh"
  Delete "$INSTDIR\profile-*.ini"
  Delete "$INSTDIR\hijri-rule.ini"
  Delete "$INSTDIR\hijri-announced.csv"
  Delete "$INSTDIR\*.out"
  Delete "$INSTDIR\.halvane-lock"
SectionEnd

; Only what is empty then goes.
Section "-un.folders"
  !include "${LISTS}/folders.nsh"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
SectionEnd

Function un.onInit
  !insertmacro MUI_UNGETLANGUAGE
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} "$0" "/STORED" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${un.Stored}
  ${EndIf}
FunctionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${un.Program} "$(ProgramTold)"
  !insertmacro MUI_DESCRIPTION_TEXT ${un.Stored} "$(StoredTold)"
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
