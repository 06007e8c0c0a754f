# shellcheck shell=bash
# A picture of the viewer's window with a record selected, taken on a virtual display. Sourced by ./run after tools/lib.sh.

# Where the first click goes, in hundredths of the window: into the list of records, which takes its keys from then on.
list_x=60
list_y=30

# The text of the language file that is the form's title: of a form with the logs alone, and of one with a report.
log_title_text=80
report_title_text=79
title_text=$log_title_text
language=en-US

# The languages of the viewer.
languages() {
  head -n 1 resource/texts.tsv | cut -f 5- | tr '\t' '\n'
}

# The text of the language file that has this number or name.
text_of() {
  awk -F '\t' -v text="$1" -v language="$language" 'NR == 1 { for (i = 1; i <= NF; ++i) if ($i == language) column = i }
         $1 == text { print $column }' resource/texts.tsv
}

# The title of the form as a pattern that matches it alone.
form_title() {
  text_of "$title_text" | sed -e 's/[][\\.*^$+?(){}|]/\\&/g' -e 's/.*/^&$/'
}

viewer_runs() {
  kill -0 "$viewer" 2>/dev/null
}

viewer_has_ended() {
  ! viewer_runs
}

# Sets window to the form, or returns 1. An error box in its place has another title and is not taken for it.
find_window() {
  viewer_runs || fail "The viewer ended before its window came up." "Try the command line on a display to see why."
  window=$(LC_ALL=C.UTF-8 xdotool search --onlyvisible --name "$(form_title)" 2>/dev/null | head -n 1)
  [[ -n $window ]]
}

# take_picture FILE: the window and what stands before it, cut out of the screen.
take_picture() {
  local WINDOW SCREEN X Y WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "$window")"
  import-im6.q16 -window root -crop "${WIDTH}x$HEIGHT+$X+$Y" +repage "PNG24:$1"
}

# True when the window shows more than plain areas and two pictures in turn are equal, the second left in FILE.
# While a window comes up it is blank, and while it fills, pictures differ.
is_painted() {
  local file=$1
  take_picture "$file.before" && take_picture "$file" || return 1
  (($(identify-im6.q16 -format %k "$file") > 16)) && cmp -s "$file.before" "$file"
}

# Clicks into the list and moves to its second row.
select_record() {
  local width height
  read -r width height < <(identify-im6.q16 -format '%w %h\n' "$1")
  xdotool mousemove --window "$window" $((width * list_x / 100)) $((height * list_y / 100)) click 1 key Home key Down
}

# True when the window has come to rest with another picture than FILE, which is then in FILE.selected.
shows_selection() {
  is_painted "$1.selected" && ! cmp -s "$1" "$1.selected"
}

# Alt+F4 closes the form as its close button does; Escape does nothing in it. A viewer that does not listen is ended.
close_viewer() {
  viewer_runs || return 0
  xdotool key alt+F4
  wait_until 5 viewer_has_ended || kill "$viewer"
  wait "$viewer" || true
}

# start_viewer PROGRAM WORD...: starts the program, which ends with the script at the latest.
start_viewer() {
  # The trace library is looked for in the current folder.
  (cd "${1%/*}" && exec "$root/tools/wine" "${1##*/}" "${@:2}") >build/viewer.log 2>&1 &
  viewer=$!
  at_exit close_viewer
}

# open_viewer FILE PROGRAM WORD...: starts the program and waits until its window is painted as FILE shows then.
open_viewer() {
  local file=$1
  shift
  mkdir -p "${file%/*}"
  start_viewer "$@"
  wait_until 60 find_window || show_screen_and_fail "The viewer's window did not come up."
  wait_until 60 is_painted "$file" || show_screen_and_fail "The viewer's window did not come to rest."
}

# shows_after FILE COMMAND...: gives the window input with the command and waits until it looks otherwise than in FILE;
# the new picture is FILE.selected.
shows_after() {
  local file=$1
  shift
  "$@" "$file"
  wait_until 20 shows_selection "$file" || show_screen_and_fail "The viewer did not answer a click or a key."
}

# photograph_viewer FILE PROGRAM WORD...: starts the program, waits until its window is painted, selects a record,
# leaves the picture in FILE and closes the program. The prefix has to be free. A report is photographed as it is.
photograph_viewer() {
  local file=$1 plain=build/shots/work/plain.png
  shift
  mkdir -p "$(dirname "$file")"
  start_virtual_display
  claim_prefix
  say "Taking a picture on a virtual display"
  open_viewer "$plain" "$@"
  if [[ $title_text == "$report_title_text" ]]; then
    cp "$plain" "$file"
  else
    shows_after "$plain" select_record
    cp "$plain.selected" "$file"
  fi
  say "The picture is ${file#"$root"/}"
}

show_screen_and_fail() {
  mkdir -p build/shots
  import-im6.q16 -window root build/shots/screen.png
  fail "$1" "build/shots/screen.png shows the screen at that time."
}
