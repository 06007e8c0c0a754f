# shellcheck shell=bash
# What ./package does. Sourced by it after tools/lib.sh.

release_folder=build/package
release_targets=(Kestrix Kestrix_mui ImportLogs VdDbg64 OrlDbMg VdFrwkSvc VdFrwkPs vdhelp)
version=$(<VERSION)

# stage_release BUILD STAGE: the files of the package, from the build folder.
stage_release() {
  local build=$1 stage=$2 notices=$2.notices
  rm -rf "$stage" && mkdir -p "$stage"
  python3 -B installer/notices.py "$build/sqlite/package/deps/sqlite3/sqlite3.c" "$notices" &&
    python3 -B installer/stage.py . "$build/bin" "$notices" "$stage" || fail "The files of the package are not complete."
}

# sign_files KEY FILE...: signs each file in its place.
sign_files() {
  local file password with=(-pkcs12 "$1")
  if [[ $1 == *.pem ]]; then
    with=(-certs "$1" -key "$1")
  fi
  if [[ -n ${KESTRIX_SIGN_PASSWORD:-} ]]; then
    # A file, since the command line of a program can be read by everybody on the machine.
    password=$(mktemp)
    at_exit "rm -f '$password'"
    printf '%s' "$KESTRIX_SIGN_PASSWORD" >"$password"
    with+=(-readpass "$password")
  fi
  shift
  for file in "$@"; do
    quietly sign osslsigncode sign "${with[@]}" -h sha256 -n Kestrix -in "$file" -out "$file.signed" &&
      mv "$file.signed" "$file" || fail "$file could not be signed." "Is the key in its file, and its password right?"
  done
}

# pack_release BUILD STAGE OUTPUT KEY: archive, installer and checksums of the staged files.
pack_release() {
  local build=$1 stage=$2 output=$3 key=$4 files
  if [[ -n $key ]]; then
    say "Signing"
    mapfile -t files < <(python3 -B installer/stage.py --signed "$stage")
    sign_files "$key" "${files[@]}"
  fi
  quietly installer python3 -B installer/make.py "$stage" "$output" "$version" "$build/resource/art/kestrix.ico" \
    common/VdFrwk.idl || fail "Installer and archive could not be made."
  if [[ -n $key ]]; then
    sign_files "$key" "$output.msi"
  fi
  (cd "${output%/*}" && sha256sum -- "${output##*/}".{msi,zip} >SHA256SUMS)
}

# make_release KEY: with an empty key nothing is signed.
make_release() {
  local name=Kestrix-$version-x64 stage=$release_folder/stage
  build_preset release "${release_targets[@]}"
  say "Packing $name"
  mkdir -p "$release_folder"
  rm -f "$release_folder"/Kestrix-* "$release_folder/SHA256SUMS"
  stage_release build/release "$stage"
  pack_release build/release "$stage" "$release_folder/$name" "$1"
  rm -rf "$stage" "$stage.notices" "$release_folder/$name.wxs"
  say "Made $release_folder/$name.msi, $name.zip and SHA256SUMS"
}

# An older version for the tests, of the same files.
make_older_release() {
  local older=$release_folder/test stage=$release_folder/test/stage
  mkdir -p "$older"
  stage_release build/release "$stage"
  version=0.9.0 pack_release build/release "$stage" "$older/Kestrix-0.9.0-x64" ''
}

# test_release [TEST...]: the tests of tests/package on what is built now, in a Wine prefix that is new.
test_release() {
  make_release ''
  make_older_release
  build_preset release package_viewer
  rm -rf build/wine-package
  start_virtual_display
  wine_prefix build/wine-package tools/no-window-manager.reg
  keep_wine_running
  say "Testing the package"
  python3 -B tests/package/run.py "$@"
}

# A second build of the same sources in another folder, without any compiled object of the first.
reproduce_release() {
  local second=build/reproduce name=Kestrix-$version-x64 cache=${XDG_CACHE_HOME:-$HOME/.cache}/kestrix
  make_release ''
  rm -rf "$second" && mkdir -p "$second/cache/kestrix"
  say "Building a second time in $second (some minutes)"
  cp "$cache"/*.tgz "$second/cache/kestrix/"
  git ls-files -z | xargs -0 cp --parents -t "$second"
  (
    unset CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER
    XDG_CACHE_HOME=$root/$second/cache "$second/package"
  ) || fail "The second build failed."
  python3 -B installer/compare.py "$release_folder/$name" "$second/$release_folder/$name"
}
