; Whether ordinary users may change what lies in a folder: where Tarnwick is installed for everybody,
; one of them could put a program of his into its place, and others would start it.
; Wants FileFunc.nsh.

!define ADD_TO_FOLDER 0x50000006 ; a file, a folder; writing and all rights in their generic form
!define REPLACE_FOLDER 0x100D0040 ; delete it or what is in it; change its rights or its owner

; In: the folder in $R4, the rights in $R5. Out: in $R6, "yes" where one of the groups that ordinary
; users belong to has one of the rights, or where that cannot be asked. Who is denied a right counts
; as having it: too many folders are unsafe, not too few.
Function usersHaveRights
  StrCpy $R6 "yes"
  ; SE_FILE_OBJECT, DACL_SECURITY_INFORMATION
  System::Call 'advapi32::GetNamedSecurityInfoW(w R4, i 1, i 4, p 0, p 0, *p .r1, p 0, *p .r2) i .r0'
  ${If} $0 <> 0
  ${OrIf} $1 P= 0 ; no list at all: everybody may do everything
    Return
  ${EndIf}
  StrCpy $R6 "no"
  System::Call '*$1(&i1, &i1, &i2, &i2 .r3, &i2)'
  IntOp $3 $3 - 1
  ${ForEach} $4 0 $3 + 1
    System::Call 'advapi32::GetAce(p r1, i r4, *p .r5) i .r0'
    System::Call '*$5(&i1 .r6, &i1 .r7, &i2, i .r8)'
    IntOp $7 $7 & 8 ; handed down only, without a meaning here
    IntOp $8 $8 & $R5
    ${If} $6 = 0 ; allows
    ${AndIf} $7 = 0
    ${AndIf} $8 <> 0
      IntPtrOp $5 $5 + 8
      System::Call 'advapi32::ConvertSidToStringSidW(p r5, *w .r9) i .r0'
      StrCpy $7 $9 "" -4
      ${If} $9 == "S-1-1-0" ; everyone
      ${OrIf} $9 == "S-1-5-4" ; who works at the machine
      ${OrIf} $9 == "S-1-5-11" ; who has given a password
      ${OrIf} $9 == "S-1-5-32-545" ; the machine's users
      ${OrIf} $7 == "-513" ; a domain's users
        StrCpy $R6 "yes"
      ${EndIf}
    ${EndIf}
  ${Next}
  System::Call 'kernel32::LocalFree(p r2)'
FunctionEnd

; In $R6, "yes" where ordinary users may write into $INSTDIR, or replace it or a folder above it.
Function usersMayWrite
  StrCpy $R4 $INSTDIR
  IntOp $R5 ${ADD_TO_FOLDER} | ${REPLACE_FOLDER}
  Call usersHaveRights
  StrCpy $R5 ${REPLACE_FOLDER}
  ${While} $R6 == "no"
    StrLen $0 $R4
    ${If} $0 <= 3 ; "C:\" was the last
      ${Break}
    ${EndIf}
    ${GetParent} $R4 $R4
    StrLen $0 $R4
    ${If} $0 = 2
      StrCpy $R4 "$R4\"
    ${EndIf}
    Call usersHaveRights
  ${EndWhile}
FunctionEnd

; A folder that is made only now gets its rights from the one above: it is made, and asked.
Function requireSafeFolder
  StrCpy $R8 $INSTDIR ; what was there before
  ${DoUntil} ${FileExists} "$R8\*.*"
    ${GetParent} $R8 $R8
  ${Loop}
  CreateDirectory "$INSTDIR"
  Call usersMayWrite
  ${If} $R6 == "yes"
    MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "Ordinary users may write into $INSTDIR, and put \
      a program of theirs in the place of Tarnwick, which others would start.$\r$\n$\r$\nInstall it there all the same?" \
      /SD IDNO IDYES goOn
    StrCpy $R4 $INSTDIR
    ${DoUntil} $R4 == $R8
      RMDir $R4 ; nothing that holds anything
      ${GetParent} $R4 $R4
    ${Loop}
    SetErrorLevel 2
    Abort
    goOn:
  ${EndIf}
FunctionEnd
