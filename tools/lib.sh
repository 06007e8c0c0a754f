# shellcheck shell=bash
# What ./run, ./test and ./bench share; sourced by them from the root of the checkout.
# Every function prints nothing but single lines of progress, and ends the script with an error and its remedy on failure.
# All that they make lies below build/. Nothing of the user's own Wine prefix is read or written.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
mkdir -p build

wineserver=/usr/lib/wine/wineserver
exit_actions=()

say() {
  printf '%s\n' "$*"
}

# fail MESSAGE [REMEDY]
fail() {
  printf '%s: %s\n' "${0##*/}" "$1" >&2
  if [[ -n ${2:-} ]]; then
    printf '  %s\n' "$2" >&2
  fi
  exit 1
}

# The comment at the top of a script is its help.
print_help() {
  sed -n -e '2,${/^#/!q;s/^# \{0,1\}//;p}' "$1"
}

# at_exit COMMAND: run when the script ends, however it ends; the latest first.
at_exit() {
  exit_actions=("$1" "${exit_actions[@]}")
}

run_exit_actions() {
  local status=$? action
  trap '' INT TERM
  for action in "${exit_actions[@]}"; do
    eval "$action" || true
  done
  exit "$status"
}
trap run_exit_actions EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# wait_until SECONDS COMMAND...: 0 as soon as the command succeeds, 1 when it did not within the time.
wait_until() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < end)) || return 1
    sleep 0.1
  done
}

# quietly LOG COMMAND...: the command's output goes to build/LOG.log, whose end is shown on failure.
quietly() {
  local log=build/$1.log status=0
  shift
  "$@" >"$log" 2>&1 || status=$?
  if ((status != 0)); then
    tail -n 60 "$log" >&2
    say "The whole output is in $log." >&2
  fi
  return "$status"
}

# missing_packages LIST: names of the packages in the list that are not installed, nor provided by an installed one.
missing_packages() {
  local name
  declare -A installed=()
  while read -r name; do
    installed[$name]=1
  done < <(dpkg-query -W -f='${db:Status-Abbrev} ${Package}, ${Provides}\n' | sed -n 's/^ii  *//p' | tr ',' '\n' |
    awk 'NF { print $1 }')
  while read -r name _; do
    if [[ -n $name && $name != '#'* && -z ${installed[$name]:-} ]]; then
      printf '%s\n' "$name"
    fi
  done <"$1"
}

# need_packages [LIST]: installs what is missing of the list, tools/packages.txt when none is named. With nothing missing
# it costs some milliseconds.
need_packages() {
  local list=${1:-tools/packages.txt} missing as_root=() apt
  command -v dpkg-query >/dev/null ||
    fail "This is no Debian system." "Use Debian 12, or install the equals of $list."
  mapfile -t missing < <(missing_packages "$list")
  if ((${#missing[@]} == 0)); then
    return
  fi
  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      fail "Packages are missing, and only root can install them." "As root: apt-get install ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y)
  { quietly packages "${apt[@]}" update && quietly packages "${apt[@]}" install --no-install-recommends "${missing[@]}"; } ||
    fail "The packages could not be installed." "Mend what apt-get says above, or install them by hand: ${missing[*]}"
}

# True when build/PRESET was configured for this checkout, and not for one that it was copied or moved from.
configured_here() {
  [[ -f build/$1/build.ninja ]] && grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "build/$1/CMakeCache.txt"
}

# build_preset PRESET [TARGET...]: configures build/PRESET when it is new here and builds the targets, or everything.
build_preset() {
  local preset=$1 target arguments=(--build --preset "$1")
  shift
  for target in "$@"; do
    arguments+=(--target "$target")
  done
  if ! configured_here "$preset"; then
    say "Configuring build/$preset"
    quietly "configure-$preset" cmake --fresh --preset "$preset" || fail "build/$preset could not be configured."
  fi
  say "Building ${*:-everything} in build/$preset"
  if [[ -t 1 ]]; then
    cmake "${arguments[@]}" || fail "The build failed." "The first error above is the one to mend."
  else
    quietly "build-$preset" cmake "${arguments[@]}" || fail "The build failed." "The first error above is the one to mend."
  fi
}

# wine_prefix DIR [REG FILE...]: makes DIR, a folder below build/, the Wine prefix of all that follows, and creates it when it is new.
# A copy of the applied settings, tools/prefix.reg and those of the files, in it tells that nothing is left to do.
wine_prefix() {
  export WINEPREFIX=$root/$1
  local settings stamp=$WINEPREFIX/kestrix-prefix.reg
  local -a files=(tools/prefix.reg "${@:2}")
  if cat "${files[@]}" | cmp -s - "$stamp"; then
    return
  fi
  if [[ ! -f $stamp ]]; then
    say "Making the Wine prefix $1 (about 15 seconds)"
    mkdir -p "$WINEPREFIX"
    quietly wineboot tools/wine wineboot -i || fail "Wine could not make its prefix." "Remove $1 and try again."
  fi
  for settings in "${files[@]}"; do
    quietly regedit tools/wine regedit /S "Z:${root//\//\\}\\${settings//\//\\}" ||
      fail "$settings could not be imported into $1." "Remove $1 and try again."
  done
  await_wineserver_end 60 || fail "Wine did not settle in $1." "End the programs that run in it, or remove it."
  cat "${files[@]}" >"$stamp"
}

# await_wineserver_end SECONDS: waits until no program runs in the prefix any longer, and its registry is on the disk.
await_wineserver_end() {
  timeout "$1" "$wineserver" -w
}

# Keeps Wine's server, services and desktop for all programs that follow, which saves the start of each; ended with the
# script, and every program in the prefix with them. Wine starts them beside the first program that needs them, and they
# hold its standard error open. Were that a test, ctest would wait for them in vain. So the first is a program that asks
# for the desktop, then waits for an input that does not come.
keep_wine_running() {
  local pipe input output answer
  claim_prefix
  pipe=$(mktemp -u build/keeper.XXXXXX)
  mkfifo "$pipe"
  exec {input}<>"$pipe"
  rm "$pipe"
  exec {output}< <(exec tools/wine cmd /c 'rundll32 user32.dll,GetDesktopWindow & echo ready & set /p end=' \
    <&"$input" 2>/dev/null)
  read -r -t 60 -u "$output" answer || true
  [[ ${answer:-} == ready* ]] ||
    fail "No program starts in ${WINEPREFIX#"$root"/}." "Remove it and try again."
}

# Fails when another run uses the prefix; from here on all programs in it end with the script.
claim_prefix() {
  await_wineserver_end 15 ||
    fail "Programs are running in ${WINEPREFIX#"$root"/}." "Close the viewer or wait for the other run of this checkout."
  at_exit "WINEPREFIX='$WINEPREFIX' end_wineserver"
}

end_wineserver() {
  "$wineserver" -k && await_wineserver_end 10
}

# True when DISPLAY names a display that answers.
have_display() {
  [[ -n ${DISPLAY:-} ]] && xdotool getdisplaygeometry >/dev/null 2>&1
}

# start_virtual_display [SIZE]: starts a display of its own, on a free number, and sets DISPLAY; ended with the script.
start_virtual_display() {
  local number_file
  number_file=$(mktemp build/display.XXXXXX)
  Xvfb -displayfd 3 -screen 0 "${1:-1280x1024}x24" -nolisten tcp 3>"$number_file" >build/display.log 2>&1 &
  display_pid=$!
  at_exit "kill $display_pid 2>/dev/null && wait $display_pid; rm -f $number_file"
  wait_until 20 grep -q . "$number_file" ||
    fail "The virtual display did not start." "See build/display.log. Is /tmp/.X11-unix writable?"
  DISPLAY=:$(<"$number_file")
  # A desktop has resources for its programs. Without any, each font that Wine selects makes the X library look for
  # files that are not there, more than a thousand times at a start of the viewer.
  XENVIRONMENT=$root/tools/virtual-display.resources
  export DISPLAY XENVIRONMENT
}

# The display of the user where there is one, else a virtual one.
start_display() {
  have_display || start_virtual_display
}

# open_desktops COUNT: a display and a running Wine prefix, build/wine-test, for all that follows, and so many more, each
# with a copy of the prefix, to be lent. KESTRIX_DESKTOPS tells of the latter in a line each: display, prefix.
open_desktops() {
  local number prefix
  wine_prefix build/wine-test tools/no-window-manager.reg
  KESTRIX_DESKTOPS=
  for ((number = 1; number <= $1; ++number)); do
    prefix=build/wine-test-$number
    [[ -d $prefix ]] || cp -a build/wine-test "$prefix"
    open_desktop "$prefix"
    KESTRIX_DESKTOPS+="$DISPLAY $WINEPREFIX"$'\n'
  done
  export KESTRIX_DESKTOPS
  open_desktop build/wine-test
}

# open_desktop PREFIX
open_desktop() {
  start_virtual_display
  wine_prefix "$1" tools/no-window-manager.reg
  keep_wine_running
}

# desktop_resources COUNT: the desktops that are lent, as ctest's --resource-spec-file reads them.
desktop_resources() {
  local number ids=()
  for ((number = 1; number <= $1; ++number)); do
    ids+=("{\"id\": \"$number\"}")
  done
  printf '{"version": {"major": 1, "minor": 0}, "local": [{"desktops": [%s]}]}\n' "$(IFS=,; printf '%s' "${ids[*]}")"
}
