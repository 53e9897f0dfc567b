# Sourced by execute.sh: records whose names look like something else in the system's code page.

lay_out_deceiving_records() {
    for name in "${deceiving_names[@]}"; do echo "Title: $name" >"$folder/records/$name"; done
}
# One output of each record, of different content, and nothing that a command would have made.
expect_each_record_once() {
    local made
    made=$(find "$folder/out/mp" -name '*.txt' | wc -l)
    [ "$made" = $((${#deceiving_names[@]} + 1)) ] || fail "$made texts: $(ls "$folder/out/mp")"
    [ "$(md5sum "$folder"/out/mp/*.txt | cut -d' ' -f1 | sort -u | wc -l)" = "$made" ] ||
        fail "a record was run over twice"
    local strange
    strange=$(find "$folder" -name pwned -o -name 'w.*')
    [ -z "$strange" ] || fail "$strange"
}

test_90_deceiving_names_in_a_run_and_in_a_batch_file() {
    fresh
    tools_do work
    lay_out_deceiving_records
    define 'GRID_Text=C:\work\out\mp'
    launch_run
    expect_entries lstSelected 8 0
    press cmdOK
    expect_over Done!
    expect_each_record_once
    press cmdCreateBatFile
    answer_file_dialog 'Save Batch File' 'C:\work\kept.bat'
    expect_message Tarnwick 'The batch file "C:\work\kept.bat" has been created.'
    rm "$folder"/out/mp/*
    "$wine_run" cmd /c 'C:\work\kept.bat' >"$work/kept.log" 2>&1 </dev/null ||
        fail "the batch file: $(cat "$work/kept.log")"
    expect_each_record_once
    end_program
}

# bring_in type|paste NUMBER...: into the field that has the focus.
bring_in() {
    "$wine_run" "$build/tests/window/wide_hands.exe" "$title" "$@" >"$work/hands.log" 2>&1 </dev/null ||
        fail "nothing comes in: $(cat "$work/hands.log")"
    act
}

test_91_a_character_without_a_place_is_not_taken_by_a_field() {
    fresh
    define
    launch_run
    fill txtInExt '*.me'
    bring_in type 74
    bring_in paste 61 62
    look
    expect_text txtInExt '*.metab'
    bring_in type 416 101 ff0a
    look
    expect_text txtInExt '*.metab'
    bring_in paste ff02 26 6d 64
    look
    expect_text txtInExt '*.metab'
    end_program_asked
}

test_92_deceiving_names_in_links_and_in_the_definition() {
    fresh
    tools_do work
    lay_out_deceiving_records
    mv "$folder/records" "$folder/Жук ā"
    local short page
    short=$("$wine_run" cmd /c 'dir /x C:\work' | tr -d '\r' | sed -n 's/.*<DIR> *\([^ ]*~[^ ]*\) *?.*/\1/p')
    [ -n "$short" ] || fail 'the folder has no short name'
    define "Input Folder=C:\\work\\$short" 'Convert HyperLink To Relative Path=True' \
        'GRID_Html=C:\work\out\mp' 'GRID_Text=C:\work\elsewhere'
    launch_run
    expect_entries lstSelected 8 0
    press cmdOK
    expect_over Done!
    [ "$(find "$folder/out/mp" -name '*.html' | wc -l)" = 8 ] || fail "pages: $(ls "$folder/out/mp")"
    for page in "$folder"/out/mp/*.html; do
        grep -qF "HREF=\"../../elsewhere/$(basename "$page" .html).txt\"" "$page" ||
            fail "the links of $page: $(grep HREF "$page")"
    done
    # What is saved finds the folder again.
    press chkfixdoc
    menu f s
    grep -qF "Input Folder=C:\\work\\$short" "$folder/TARNWICK.ini" ||
        fail "the definition: $(cat "$folder/TARNWICK.ini")"
    end_program
    launch_run
    expect_entries lstSelected 8 0
    end_program
}

# The interpreter's own code page has no such letter. Wine reads the line in that one all the same, so only what
# the batch file leaves behind is looked at. Without a console there is no code page to put back.
test_93_a_batch_file_in_the_systems_code_page_puts_the_other_one_back() {
    fresh
    tools_do work
    echo 'Title: À' >"$folder/records/À.met"
    define
    launch_run
    press cmdCreateBatFile
    answer_file_dialog 'Save Batch File' 'C:\work\kept.bat'
    expect_message Tarnwick 'The batch file "C:\work\kept.bat" has been created.'
    end_program
    grep -q ' 1252 > nul' "$folder/kept.bat" || fail 'it keeps the code page'
    lines '@chcp > C:\work\before.txt' '@call C:\work\kept.bat > C:\work\kept.log 2>&1' \
        '@chcp > C:\work\after.txt' >"$folder/around.bat"
    "$wine_run" cmd /c 'start /wait /min cmd /c C:\work\around.bat' >"$work/around.log" 2>&1 </dev/null ||
        fail "the batch file: $(cat "$work/around.log")"
    grep -q 437 "$folder/before.txt" || fail "there is no code page: $(cat "$folder/before.txt")"
    cmp "$folder/before.txt" "$folder/after.txt" || fail "it was another one: $(cat "$folder/after.txt")"
    expect_made "$folder/out/mp/a.err"
}
