#!/usr/bin/env bash
# Measures vekrun beside other tools in the same run; called by ./vek bench.
# usage: run.sh BINFOLDER [ROUNDS]
set -euo pipefail

bin=$(cd "$1" && pwd)
rounds=${2:-10}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d "$bin/../bench.XXXXXX")
trap 'rm -rf "$work"' EXIT

if command -v ant >/dev/null; then
  with_ant() { printf '%s\n' -- ant ant -q -S -f "$@"; }
else
  echo "ant is not installed: its rows are left out (apt-get install ant)"
  with_ant() { :; }
fi

# peer NAME COMMAND...: the words of a contestant whose program may be missing.
peer() { if command -v "$2" >/dev/null; then printf '%s\n' -- "$@"; fi; }

# project NAME: makes NAME.vekproj of the actions on standard input.
project() {
  { echo '<VekProject Version="1"><Actions>'; cat; echo '</Actions></VekProject>'; } >"$work/$1.vekproj"
}

# ant_build NAME: makes NAME.xml of the tasks on standard input.
ant_build() {
  { echo '<project default="all"><target name="all">'; cat; echo '</target></project>'; } >"$work/$1.xml"
}

# loop COUNT: a File Iterator with as many passes around the actions on standard input; the loop variable is F
# and holds file00001.txt and so on.
loop() {
  [[ -d $work/passes$1 ]] || "$here/make_files.sh" "$work/passes$1" "$1"
  cat <<XML
<Action Type="HFILEITERATOR">
  <Properties>
    <VariableName>F</VariableName><FileSpec>$work/passes$1/*</FileSpec><IncludeFilePath>False</IncludeFilePath>
  </Properties>
  <Actions>
XML
  cat
  echo '</Actions></Action>'
}

stopwatch() { "$bin/vek_stopwatch" "$@"; }

startup() {
  project empty </dev/null
  ant_build empty </dev/null
  echo 'all: ;' >"$work/empty.mk"
  mapfile -t ant < <(with_ant "$work/empty.xml")
  echo "Start-up, an empty project:"
  stopwatch $((rounds * 5)) -- vekrun "$bin/vekrun" run -q "$work/empty.vekproj" \
    -- make make -f "$work/empty.mk" "${ant[@]}"
}

delete_files() {
  ant_build delete <<<'<delete><fileset dir="${folder}" includes="*.txt"/></delete>'
  mapfile -t ant < <(with_ant "$work/delete.xml" "-Dfolder=$work/files{}")
  echo "Deleting 20,000 empty files:"
  stopwatch "$rounds" --prepare "$here/make_files.sh" "$work/files{}" 20000 \
    -- vekrun "$bin/vekrun" exec -q HDELETE_FILE "FileSpec=$work/files{}/*.txt" \
    -- 'rm -rf' rm -rf "$work/files{}" "${ant[@]}"
}

delete_tree() {
  ant_build tree <<<'<delete dir="${folder}"/>'
  mapfile -t ant < <(with_ant "$work/tree.xml" "-Dfolder=$work/tree{}")
  echo "Deleting a tree of 20,000 fresh files in 100 folders:"
  stopwatch "$rounds" --prepare "$here/make_tree.sh" "$work/tree{}" 100 200 0 \
    -- vekrun "$bin/vekrun" exec -q HDELETE_DIR "FileOrDirectory=$work/tree{}" \
    -- 'rm -rf' rm -rf "$work/tree{}" "${ant[@]}"
}

touch_files() {
  "$here/make_tree.sh" "$work/touched" 100 200 0
  ant_build touch <<<"<touch><fileset dir='$work/touched'/></touch>"
  mapfile -t ant < <(with_ant "$work/touch.xml")
  echo 'find "$1" -exec touch {} +' >"$work/touch.sh"
  echo "Touching 20,000 files:"
  stopwatch "$rounds" \
    -- vekrun "$bin/vekrun" exec -q HTOUCHFILES "FileSpec=$work/touched/*" Recurse=True UseNow=True \
    -- 'find + touch' sh "$work/touch.sh" "$work/touched" "${ant[@]}"

  ant_build chmod <<<"<chmod dir='$work/touched' perm='a-w' includes='**' type='both'/>"
  mapfile -t ant < <(with_ant "$work/chmod.xml")
  echo "Making 20,000 files read-only:"
  stopwatch "$rounds" --prepare chmod -R u+w "$work/touched" \
    -- vekrun "$bin/vekrun" exec -q HSETFILEATTRIB "FileSpec=$work/touched/*" Recurse=True ReadOnly=asSet \
    -- 'chmod -R' chmod -R a-w "$work/touched" "${ant[@]}"
  chmod -R u+w "$work/touched"
  rm -rf "$work/touched"
}

copy_files() {
  "$here/make_tree.sh" "$work/small" 100 200 2048
  ant_build copy <<<'<copy todir="${to}" preservelastmodified="true"><fileset dir="${from}"/></copy>'
  mapfile -t ant < <(with_ant "$work/copy.xml" "-Dfrom=$work/small" "-Dto=$work/copy{}")
  echo "Copying 20,000 files of 2 KiB in 100 folders:"
  stopwatch "$rounds" -- vekrun "$bin/vekrun" exec -q HCOPYFILES "FileSpec=$work/small/*" \
    "Target=$work/copy{}" Recurse=True Force=True \
    -- 'cp -r' cp -r "$work/small" "$work/copy{}" "${ant[@]}"
  rm -rf "$work/small" "$work"/copy*

  head -c 1G /dev/urandom >"$work/large"
  echo "Copying one file of 1 GiB:"
  stopwatch 5 --prepare sh -c "rm -f '$work'/large-*" \
    -- vekrun "$bin/vekrun" exec -q HCOPYFILES "FileSpec=$work/large" "Target=$work/large-{}" \
    -- cp cp "$work/large" "$work/large-{}"
  rm -f "$work"/large*
}

mirror_files() {
  "$here/make_tree.sh" "$work/small" 100 200 2048
  mapfile -t rsync < <(peer 'rsync -a' rsync -a "$work/small/" "$work/synced{}")
  # Its codes below 8 are no failures.
  local robocopy=(sh -c '"$@" || [ $? -lt 8 ]' sh "$bin/tools/robocopy.exe" "$work/small")
  echo "Mirroring 20,000 files of 2 KiB in 100 folders for the first time:"
  stopwatch "$rounds" -- robocopy "${robocopy[@]}" "$work/mirror{}" /MIR /NP \
    -- 'robocopy /MT:4' "${robocopy[@]}" "$work/threads{}" /MIR /NP /MT:4 \
    "${rsync[@]}" -- 'cp -r' cp -r "$work/small" "$work/copy{}"
  echo "The same with nothing changed since:"
  "${robocopy[@]}" "$work/mirror" /MIR >"$work/mirror.log"
  stopwatch "$rounds" -- robocopy "${robocopy[@]}" "$work/mirror" /MIR /NP \
    "${rsync[@]/synced\{\}/mirror}"
  rm -rf "$work"/small "$work"/{mirror,threads,synced,copy}*
}

list_files() {
  "$here/make_tree.sh" "$work/many" 1000 100 0
  local name any
  for any in True False; do
    project "list$any" <<XML
<Action Type="HFILEITERATOR"><Properties>
  <FileSpec>$work/many/*.txt</FileSpec><Recurse>True</Recurse><FindAnyFile>$any</FindAnyFile>
</Properties></Action>
XML
  done
  ant_build list <<<"<fileset id='f' dir='$work/many' includes='**/*.txt'/><pathconvert property='p' refid='f'/>"
  mapfile -t ant < <(with_ant "$work/list.xml")
  echo "Listing 100,000 files in 1,000 folders (the second vekrun leaves hidden files out):"
  stopwatch "$rounds" -- find find "$work/many" -name '*.txt' \
    -- vekrun "$bin/vekrun" run "$work/listTrue.vekproj" \
    -- 'vekrun, no hidden' "$bin/vekrun" run "$work/listFalse.vekproj" "${ant[@]}"
  rm -rf "$work/many"
}

run_loop() {
  loop 10000 <<<'<Action Type="ACTIONGROUP"/>' | project loop
  echo 'i=0; while [ $i -lt 10000 ]; do :; i=$((i + 1)); done' >"$work/loop.sh"
  { for ((i = 0; i < 10000; ++i)); do echo '<property name="p" value="1"/>'; done; } | ant_build loop
  mapfile -t ant < <(with_ant "$work/loop.xml")
  echo "10,000 passes of a loop with one trivial child:"
  stopwatch "$rounds" -- vekrun "$bin/vekrun" run -q "$work/loop.vekproj" \
    -- sh sh "$work/loop.sh" "${ant[@]}"
}

run_programs() {
  loop 1000 <<'XML' | project true
<Action Type="HEXECUTEPROG"><Properties><ProgramName>/bin/true</ProgramName><LogOutput>False</LogOutput></Properties></Action>
XML
  echo 'i=0; while [ $i -lt 1000 ]; do /bin/true; i=$((i + 1)); done' >"$work/true.sh"
  { echo 'rule r'; echo ' command = /bin/true $out'
    for ((i = 0; i < 1000; ++i)); do echo "build o$i: r"; done; } >"$work/build.ninja"
  mapfile -t ninja < <(peer ninja ninja --quiet -j1 -C "$work")
  { for ((i = 0; i < 1000; ++i)); do echo '<exec executable="/bin/true"/>'; done; } | ant_build true
  mapfile -t ant < <(with_ant "$work/true.xml")
  echo "Running /bin/true 1,000 times:"
  stopwatch 5 -- vekrun "$bin/vekrun" run -q "$work/true.vekproj" \
    -- sh sh "$work/true.sh" "${ninja[@]}" "${ant[@]}"
}

capture_output() {
  head -c 100000000 < <(yes 'a line of output as programs write them, some sixty bytes') >"$work/output"
  echo "Capturing 100 MB of output line by line:"
  stopwatch 5 -- vekrun "$bin/vekrun" exec HEXECUTEPROG ProgramName=cat "Params=$work/output" \
    -- 'line reader' "$bin/vek_line_reader" cat "$work/output" \
    -- 'cat | cat' sh -c "cat '$work/output' | cat"
  rm -f "$work/output"
}

ini_files() {
  { echo '[Keys]'; for ((i = 1; i <= 10000; ++i)); do printf 'file%05d.txt=value %d\n' "$i" "$i"; done; } \
    >"$work/keys.ini"
  loop 500 <<XML | project write
<Action Type="HWRITEINI"><Properties><IniFile>$work/keys.ini</IniFile><Section>Keys</Section>
<ValueName>%F%</ValueName><NewValue>new</NewValue></Properties></Action>
XML
  loop 500 <<XML | project read
<Action Type="HREADINI"><Properties><IniFile>$work/keys.ini</IniFile><Section>Keys</Section>
<ValueName>%F%</ValueName><VariableName>V</VariableName></Properties></Action>
XML
  local what
  for what in write read; do
    mapfile -t python < <(peer python3 python3 "$here/ini.py" "$what" "$work/keys.ini" 500)
    echo "500 INI ${what}s in a file of 10,000 keys:"
    stopwatch 3 -- vekrun "$bin/vekrun" run -q "$work/$what.vekproj" "${python[@]}"
  done
}

list_folders() {
  mkdir -p "$work"/folders/{1..100}/{1..99}
  project folders <<XML
<Action Type="FOLDERITERATOR"><Properties>
  <StartingFolder>$work/folders</StartingFolder><Recurse>True</Recurse>
</Properties></Action>
XML
  echo "Listing 10,000 folders:"
  stopwatch "$rounds" -- find find "$work/folders" -type d \
    -- vekrun "$bin/vekrun" run "$work/folders.vekproj"
  rm -rf "$work/folders"
}

# keep_variables: 1,000 variables written and read back by one action each, and by two actions in all.
keep_variables() {
  local i place names='' types='' apart='' defined=()
  for ((i = 1; i <= 1000; ++i)); do
    defined+=(-D "V$i=value $i")
    names+="<Line>V$i</Line>" types+='<Line>STRING</Line>'
    place="<IniFile>$work/apart.ini</IniFile><Section>S</Section><ValueName>V$i</ValueName>"
    apart+="<Action Type='HWRITEINI'><Properties>$place<NewValue>%V$i%</NewValue><AllowCreate>True</AllowCreate></Properties></Action>"
    apart+="<Action Type='HREADINI'><Properties>$place<VariableName>V$i</VariableName></Properties></Action>"
  done
  local variables="<INIFile>$work/together.ini</INIFile><Variables>$names</Variables>"
  project together <<XML
<Action Type="SAVEVARTOINI"><Properties>$variables</Properties></Action>
<Action Type="LOADVARFROMINI"><Properties>$variables<VariableTypes>$types</VariableTypes></Properties></Action>
XML
  project apart <<<"$apart"
  echo "Keeping 1,000 variables in an INI file:"
  stopwatch 5 -- 'one by one' "$bin/vekrun" run -q "$work/apart.vekproj" "${defined[@]}" \
    -- 'all at once' "$bin/vekrun" run -q "$work/together.vekproj" "${defined[@]}"
}

# rewrite SOURCE COMMAND...: a change in place of a copy of the source that each round makes anew.
rewrite() {
  local source=$1
  shift
  stopwatch 5 --prepare cp "$source" "$work/text-copy" "$@"
}

texts() {
  python3 "$here/make_text.py" "$work/text" 200000000
  local find=("$bin/vekrun" exec -q TEXTFIND "SourcePath=$work/text" FailMatchCount=0)
  mapfile -t rg < <(peer rg rg -j1 --count-matches Needle42 "$work/text")
  echo "Counting a literal in 200 MB:"
  stopwatch "$rounds" -- vekrun "${find[@]}" SearchString=Needle42 CaseSensitive=True "${rg[@]}"
  mapfile -t rg < <(peer rg rg -j1 -i --count-matches needle42 "$work/text")
  echo "Counting a literal in 200 MB, letter case ignored:"
  stopwatch "$rounds" -- vekrun "${find[@]}" SearchString=needle42 "${rg[@]}"
  mapfile -t rg < <(peer rg rg -j1 --count-matches '\b[a-z]+ing (?:lines|files) \w+' "$work/text")
  echo "Counting a regular expression in 200 MB:"
  stopwatch "$rounds" -- vekrun "${find[@]}" 'SearchString=\b[a-z]+ing (?:lines|files) \w+' MatchRegExpr=True "${rg[@]}"

  local replace=("$bin/vekrun" exec -q TEXTREPLACE "Filename=$work/text-copy" DoReplaceText=True)
  mapfile -t sd < <(peer sd sd -s Needle42 thread "$work/text-copy")
  echo "Replacing a literal, 10,000 places in 200 MB:"
  rewrite "$work/text" -- vekrun "${replace[@]}" SearchText=Needle42 ReplaceText=thread \
    -- 'sed -i' sed -i s/Needle42/thread/g "$work/text-copy" "${sd[@]}"
  mapfile -t sd < <(peer sd sd 'Need\w+\d' thread "$work/text-copy")
  echo "Replacing by a regular expression in 200 MB:"
  rewrite "$work/text" -- vekrun "${replace[@]}" 'SearchText=Need\w+\d' ReplaceText=thread \
    MatchRegularExpression=True "${sd[@]}"
  rm -f "$work"/text*
}

text_lines() {
  seq -f 'line %.0f of a file' 1000000 >"$work/lines"
  project lines <<XML
<Action Type="READTEXTFILEITERATOR"><Properties>
  <LoopVariable>L</LoopVariable><TextFileName>$work/lines</TextFileName>
</Properties><Actions><Action Type="ACTIONGROUP"/></Actions></Action>
XML
  echo "while read -r line; do :; done <'$work/lines'" >"$work/lines.sh"
  echo "1,000,000 lines of a file, a pass with one trivial child for each:"
  stopwatch 3 -- vekrun "$bin/vekrun" run -q "$work/lines.vekproj" -- bash bash "$work/lines.sh" \
    -- sh sh "$work/lines.sh"
  rm -f "$work/lines"
}

checksums() {
  head -c 1G /dev/urandom >"$work/large"
  cp "$work/large" "$work/same"
  mapfile -t openssl < <(peer openssl openssl md5 "$work/large")
  echo "MD5 of 1 GiB:"
  stopwatch 5 -- vekrun "$bin/vekrun" exec -q MD5 "FileName=$work/large" \
    -- md5sum md5sum "$work/large" "${openssl[@]}"
  mapfile -t zlib < <(peer zlib python3 "$here/crc.py" "$work/large")
  echo "CRC-32 of 1 GiB:"
  stopwatch 5 -- vekrun "$bin/vekrun" exec -q CRC32 "FileName=$work/large" \
    -- 'carry-less' "$bin/vek_crc32" "$work/large" "${zlib[@]}"
  echo "Comparing two files of 1 GiB by MD5:"
  stopwatch 3 -- vekrun "$bin/vekrun" exec -q FILECOMPARE "FileA=$work/large" "FileB=$work/same" \
    -- md5sum md5sum "$work/large" "$work/same"
  rm -f "$work/large" "$work/same"
}

concatenate() {
  head -c 512M /dev/urandom >"$work/half1"
  cp "$work/half1" "$work/half2"
  echo "Concatenating two files of 512 MiB:"
  stopwatch 5 --prepare sh -c "rm -f '$work'/whole-*" \
    -- vekrun "$bin/vekrun" exec -q HCONCAT "SourceFile1=$work/half1" "SourceFile2=$work/half2" \
    "DestinationFile=$work/whole-{}" \
    -- cat sh -c "cat '$work/half1' '$work/half2' >'$work/whole-{}'"
  rm -f "$work"/half* "$work"/whole-*
}

registry() {
  local store="--option Registry.File=$work/registry.reg"
  loop 2000 <<XML | project registry
<Action Type="VEKSETREG"><Properties><RegRoot>2147483649</RegRoot><RegKey>Software\\Bench</RegKey>
<RegValType>rtInteger</RegValType><RegValueName>%F%</RegValueName><RegValue>1</RegValue>
<AllowCreateKey>True</AllowCreateKey></Properties></Action>
XML
  echo "2,000 registry values set by one run:"
  stopwatch 5 -- vekrun "$bin/vekrun" run -q $store "$work/registry.vekproj" \
    -- 'a file replaced for each' "$bin/vek_file_replacer" "$work/replaced" 2000
  echo "500 registry values set, by a run each:"
  rm -f "$work/registry.reg"
  stopwatch 3 -- vekrun sh -c 'for i in $(seq 500); do "$@" "RegValueName=v$i"; done' sh "$bin/vekrun" exec -q \
    $store VEKSETREG RegRoot=2147483649 'RegKey=Software\Bench' RegValue=1 AllowCreateKey=True \
    -- 'a file replaced by a shell' sh -c 'for i in $(seq 500); do sh -c "echo v$i=1 >\"$1.new\"; mv \"$1.new\" \"$1\""; done' \
    sh "$work/replaced"
}

for part in startup delete_files delete_tree touch_files copy_files mirror_files list_files list_folders run_loop run_programs \
  capture_output ini_files keep_variables texts text_lines checksums concatenate registry; do
  if [[ -z ${BENCH_ONLY:-} || " $BENCH_ONLY " == *" $part "* ]]; then "$part"; fi
done
