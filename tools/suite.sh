# shellcheck shell=bash
# The suite around the viewer, installed into the Wine prefix as its own installer would. Sourced by ./run after
# tools/lib.sh.

suite_targets=(SampleLogs ImportLogs VdDbg64 OrlDbMg VdFrwkSvc VdFrwkPs vdhelp)
suite_folder=build/wine/drive_c/Zeptara
data_folder=build/wine/drive_c/ProgramData/Zeptara
database='C:\ProgramData\Zeptara\EventLog.db'
sample_program=build/release/suite/SampleLogs.exe
service_stamp=$suite_folder/.registered
# By its name in the prefix, which holds wherever the checkout is moved or copied to.
service_program='C:\Zeptara\VdFrwkSvc.exe'

# Copies what the suite's programs load from its folder, and registers the service when that is new or was registered
# under another name.
install_suite() {
  local file changed=
  mkdir -p "$suite_folder/Log" "$data_folder"
  cp build/release/suite/FirstRules.txt "$data_folder/"
  for file in OrlDbMg.dll VdFrwkSvc.exe VdFrwkPs.dll vdhelp.chm $(cd build/release/bin && echo vdhelp.*-*.chm); do
    if ! cmp -s "build/release/bin/$file" "$suite_folder/$file"; then
      cp "build/release/bin/$file" "$suite_folder/.$file" && mv "$suite_folder/.$file" "$suite_folder/$file" ||
        fail "$file could not be copied into $suite_folder." "Close the viewer and try again."
      changed+=" $file"
    fi
  done
  if [[ -f $service_stamp && $(<"$service_stamp") == "$service_program" && $changed != *VdFrwk* ]]; then
    return
  fi
  say "Registering the service"
  quietly service tools/wine "$service_program" /RegServer || fail "The service could not be registered."
  printf '%s\n' "$service_program" >"$service_stamp"
}

# set_language NAME: of the viewer and of its help; as tools/suite.reg has it, the prefix speaks English.
set_language() {
  local stamp=$WINEPREFIX/kestrix-language help=vdhelp.chm key='HKLM\Software\Veldrane\Zeptara' before=en-US
  language=$1
  [[ $language == en-US ]] || help=vdhelp.$language.chm
  if [[ $stamp -nt $WINEPREFIX/kestrix-prefix.reg ]]; then
    before=$(<"$stamp")
  fi
  [[ $before != "$language" ]] || return 0
  { quietly language tools/wine reg add "$key" /v LangName /d "$language" /f &&
    quietly language tools/wine reg add "$key\\17\\UIFramework\\OLH" /v Files /d "$help" /f; } ||
    fail "The language could not be set."
  printf '%s\n' "$language" >"$stamp"
}

# The sample logs of the last 30 days up to today, as daily files and in the event-log database; made anew each day.
fill_samples() {
  local today stamp=build/wine/kestrix-samples
  today=$(date +%Y%m%d)
  if [[ $stamp -nt $sample_program && $(<"$stamp") == "$today" && -f $data_folder/EventLog.db ]]; then
    return
  fi
  say "Filling the sample logs up to today"
  quietly samples tools/wine "$sample_program" --folder 'C:\Zeptara\Log' --database "$database" \
    --end "$today" || fail "The sample logs could not be made."
  printf '%s\n' "$today" >"$stamp"
}
