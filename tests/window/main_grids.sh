# Sourced by main_window.sh: the two grids of output definitions.

test_the_grids_keys_toggles_and_folder_button() {
    launch_defined
    press_cell grdFiles 1 2 # of a ticked row: the editor opens on its extension
    look
    expect_state txtEdit shown focus 0 4
    expect_text txtEdit .err
    type_text '*.x*8' # only "*" goes, whatever key types it
    key Return # to the folder
    look
    expect_state txtEdit shown focus
    expect_state cmdEdit shown
    expect_text txtEdit 'C:\work\out\mp'
    type_text nonsense
    key Escape # does not count
    look
    expect_state txtEdit hidden
    press_cell grdFiles 3 2
    look
    expect_text txtEdit .html
    key Up # to an unticked row: no editor there
    look
    expect_state txtEdit hidden
    press_cell grdFiles 2 0 # Text is ticked
    press_cell grdFiles 1 2
    look
    expect_text txtEdit .x8
    key Down
    look
    expect_text txtEdit .txt
    key Down
    look
    expect_text txtEdit .html
    key Up
    look
    expect_text txtEdit .txt
    press_cell grdFiles 2 3
    look
    expect_state cmdEdit shown
    press cmdEdit
    expect_window 'Open Text Folder'
    key ctrl+a
    type_text 'C:\work\elsewhere'
    key Return
    expect_closed 'Open Text Folder'
    press_cell grdFiles 4 2 # not ticked
    look
    expect_state txtEdit hidden
    press_cell grdFiles 3 0 # Html off, on, off
    press_cell grdFiles 3 0
    press_cell grdFiles 3 0
    press_cell grdCNS 2 0
    press_cell grdCNS 2 2
    look
    expect_state txtEditCNS shown focus
    type_text .left
    menu f s # saving takes what is being typed
    look
    expect_state txtEditCNS hidden
    close_unchanged
    definition 1 0 'Leftovers Extension=.left' 'Error Extension=.x8' \
        'GRID_Error=C:\work\out\mp' 'Text Extension=.txt' 'GRID_Text=C:\work\elsewhere' |
        expect_file "$folder/TARNWICK.ini"
}

test_arrow_keys_in_the_grid_and_then_typing() {
    launch_defined
    press_cell grdFiles 1 1
    key Down Down Right
    type_text 'x.log' # the first letter opens the editor, and the others replace its text
    look
    expect_state txtEdit shown focus
    expect_text txtEdit .log
    key Up # that row is off
    look
    expect_state txtEdit hidden
    expect_state grdFiles focus
    key Up Right
    type_text 'xC:\work\elsewhere'
    key Down
    look
    expect_state txtEdit hidden
    press_cell grdFiles 2 0
    press_cell grdFiles 1 2
    key Down
    type_text '.log' # over the neighbour's text, without another click
    menu f s
    key shift+Tab # from the grid to what stands before it
    look
    expect_state cmdOutputFolder focus
    close_unchanged
    definition 1 0 'Error Extension=.err' 'GRID_Error=C:\work\elsewhere' 'Text Extension=.log' \
        'Html Extension=.log' 'GRID_Html=C:\work\out\mp' | expect_file "$folder/TARNWICK.ini"
}

test_Enter_in_the_grid_goes_one_cell_on() {
    launch_defined
    press_cell grdFiles 1 1
    key Return # not a button
    look
    expect_state txtEdit shown focus
    expect_text txtEdit .err
    key Escape
    look
    expect_state grdFiles focus
    close_unchanged
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}

test_escape_ends_an_edit_and_never_the_program() {
    launch_defined
    press_cell grdFiles 1 3
    type_text nonsense
    key Tab # to the folder button
    look
    expect_state cmdEdit focus
    key Escape
    look
    expect_state txtEdit hidden
    expect_state cmdEdit hidden
    expect_state grdFiles focus
    key Escape
    press txtInput
    key Escape
    press lstSelected
    key Tab # the buttons before Close are off
    look
    expect_state cmdCancel focus
    key Escape
    expect_open
    close_unchanged
    definition 1 0 "${plain_products[@]}" | expect_file "$folder/TARNWICK.ini"
}

# The children of a grid are its cells, counted from 1, four to a row and the header first.
test_a_screen_reader_hears_where_in_a_grid_the_keyboard_is_and_what_changes_there() {
    launch_defined
    press chkfixdoc
    listen
    key Tab Tab # over the button
    expect_heard 'focus cmdOutputFolder 0' 'focus grdFiles 0' 'focus grdFiles 5'
    key Down Right
    expect_heard 'focus grdFiles 9' 'focus grdFiles 10'
    key Left space # a tick more, and one less
    expect_heard 'focus grdFiles 9' 'name grdFiles 9' 'state grdFiles 9'
    key space
    expect_heard 'name grdFiles 9' 'state grdFiles 9'
    key alt+F4
    expect_window Tarnwick
    key alt+n
    expect_end
}

# Not over the first control of the window.
test_the_keyboard_goes_straight_from_what_is_hidden_or_switched_off_to_its_successor() {
    launch_defined
    press_cell grdFiles 1 1
    listen
    key Right F2
    expect_heard 'focus grdFiles 7' 'focus txtEdit 0'
    key Escape
    expect_heard 'focus grdFiles 0' 'focus grdFiles 7'
    press lstAvailable
    key Home Tab
    ask heard "$title"
    key Return # on ">", which has nothing to do then
    expect_heard 'focus lstAvailable 0'
    close_unchanged
}
