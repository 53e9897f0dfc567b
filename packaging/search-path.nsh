; The entry of Tarnwick's folder in the system's search path for programs. That path may be longer than
; a text here can be, which would cut it off; so it is changed in memory, and by nothing but one entry.

!define ENVIRONMENT_OF_ALL "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
!define ENVIRONMENT_OF_USER "Environment"
!define HKEY_OF_ALL -2147483646 ; HKEY_LOCAL_MACHINE
!define HKEY_OF_USER -2147483647 ; HKEY_CURRENT_USER

; In: the folder in $R4; in $R5 "add" or "remove". Out: in $R6, "yes" where the path was changed.
!macro CHANGE_SEARCH_PATH UN
Function ${UN}changeSearchPath
  StrCpy $R6 "no"
  ${If} $MultiUser.InstallMode == "AllUsers"
    ; KEY_QUERY_VALUE and KEY_SET_VALUE
    System::Call 'advapi32::RegOpenKeyExW(p ${HKEY_OF_ALL}, w "${ENVIRONMENT_OF_ALL}", i 0, i 3, *p .r0) i .r1'
  ${Else}
    System::Call 'advapi32::RegOpenKeyExW(p ${HKEY_OF_USER}, w "${ENVIRONMENT_OF_USER}", i 0, i 3, *p .r0) i .r1'
  ${EndIf}
  ${If} $1 <> 0
    Return
  ${EndIf}
  System::Call 'advapi32::RegQueryValueExW(p r0, w "Path", p 0, *i .r2, p 0, *i .r3) i .r1'
  ${If} $1 = 2 ; there is none yet
    StrCpy $2 2 ; REG_EXPAND_SZ
    StrCpy $3 0
    StrCpy $1 0
  ${EndIf}
  ${If} $1 = 0
  ${AndIf} $2 >= 1
  ${AndIf} $2 <= 2 ; a text
    Call ${UN}changePathInMemory
  ${EndIf}
  System::Call 'advapi32::RegCloseKey(p r0)'
  ${If} $R6 == "yes"
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=1000
  ${EndIf}
FunctionEnd

; In: the key in $0, what kind of text the path is in $2, its length in bytes in $3.
Function ${UN}changePathInMemory
  StrLen $4 $R4
  IntOp $4 $4 * 2 ; in bytes
  IntOp $5 $3 + $4
  IntOp $5 $5 + 16
  System::Alloc $5 ; filled with zeros
  Pop $5
  ; With a ";" before and behind the path every entry has one on both sides.
  System::Call '*$5(&i2 59)'
  IntPtrOp $6 $5 + 2
  ${If} $3 > 0
    System::Call 'advapi32::RegQueryValueExW(p r0, w "Path", p 0, p 0, p r6, *i r3 .r3) i .r1'
  ${EndIf}
  System::Call 'kernel32::lstrcatW(p r5, w ";")'
  System::Call 'shlwapi::StrStrIW(p r5, w ";$R4;") p .r7'
  ${If} $1 = 0
    ${If} $R5 == "add"
    ${AndIf} $7 P= 0
      System::Call 'kernel32::lstrcatW(p r5, w "$R4")'
      ${If} $3 <= 2 ; the path was empty
        IntPtrOp $6 $6 + 2
      ${EndIf}
      Call ${UN}writePath
    ${ElseIf} $R5 == "remove"
    ${AndIf} $7 P<> 0
      IntPtrOp $8 $7 + $4
      IntPtrOp $8 $8 + 2 ; the ";" behind the entry takes the place of the one before it
      System::Call 'kernel32::lstrlenW(p r8) i .r9'
      IntOp $9 $9 * 2
      IntOp $9 $9 + 2
      System::Call 'kernel32::RtlMoveMemory(p r7, p r8, p r9)'
      System::Call 'kernel32::lstrlenW(p r5) i .r9'
      IntOp $9 $9 * 2
      IntPtrOp $9 $5 + $9
      IntPtrOp $9 $9 - 2
      System::Call '*$9(&i2 0)'
      Call ${UN}writePath
    ${EndIf}
  ${EndIf}
  System::Free $5
FunctionEnd

; In: the key in $0, the kind in $2, where the path begins in $6.
Function ${UN}writePath
  System::Call 'kernel32::lstrlenW(p r6) i .r9'
  ${If} $9 = 0
    System::Call 'advapi32::RegDeleteValueW(p r0, w "Path") i .r1'
  ${Else}
    IntOp $9 $9 * 2
    IntOp $9 $9 + 2
    System::Call 'advapi32::RegSetValueExW(p r0, w "Path", i 0, i r2, p r6, i r9) i .r1'
  ${EndIf}
  ${If} $1 = 0
    StrCpy $R6 "yes"
  ${EndIf}
FunctionEnd
!macroend

!insertmacro CHANGE_SEARCH_PATH ""
!insertmacro CHANGE_SEARCH_PATH "un."
