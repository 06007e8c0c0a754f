# shellcheck shell=bash
# What the scripts share that take over what tests found in place of what is kept; sourced by them after lib.sh.

take_all=no
build=
rest=()

# take_options ARGUMENT...: the options --yes, --build DIR and --help; what follows them is left in the array rest.
take_options() {
  while (($# > 0)); do
    case $1 in
    --yes) take_all=yes ;;
    --build)
      build=${2:-}
      [[ -d $build ]] || fail "--build needs a build folder." "For example: $0 --build build/debug"
      shift
      ;;
    -h | --help)
      print_help "$0"
      exit
      ;;
    *) break ;;
    esac
    shift
  done
  rest=("$@")
}

# confirmed QUESTION: asks at the terminal, unless all is to be taken.
confirmed() {
  local answer
  [[ $take_all == yes ]] && return
  read -r -p "$1 [y/N] " answer </dev/tty
  [[ $answer == [yY]* ]]
}

# review_texts KEPT FOUND ENDING: shows how each file FOUND/NAME.ENDING differs from KEPT/NAME.ENDING, and moves it there
# if that is right. FOUND is a folder of a build; without --build all builds are looked through.
review_texts() {
  local found name old count=0
  local -a builds=(build/release build/debug)
  [[ -z $build ]] || builds=("$build")
  while IFS= read -r -u 3 found; do
    count=$((count + 1))
    name=${found#*"/$2/"}
    old=$1/$name
    [[ -f $old ]] || old=/dev/null
    git --no-pager diff --no-index -- "$old" "$found" || true
    if confirmed "Keep this as $1/$name?"; then
      mkdir -p "$(dirname "$1/$name")"
      mv -- "$found" "$1/$name"
      say "Kept $1/$name"
    fi
  done 3< <(find "${builds[@]/%//$2}" -name "*.$3" 2>/dev/null | sort)
  ((count > 0)) || say "Nothing differs."
}
