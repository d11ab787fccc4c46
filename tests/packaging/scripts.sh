#!/usr/bin/env bash
# scripts.sh SOURCE WORK: what ./run, ./test and what they call do and say, with programs in place of
# the package manager and the build that write down their calls.
set -euo pipefail
source=$1
work=$2

rm -rf "$work"
mkdir -p "$work/bin" "$work/build/release/simulator"
cp -r "$source/run" "$source/test" "$source/cmake" "$work"
cd "$work"
export PATH="$work/bin:$PATH" CALLS="$work/calls"
unset DISPLAY WAYLAND_DISPLAY

# fake NAME: a program of that name that does what is given on standard input.
fake()
{
    { printf '#!/usr/bin/env bash\necho "%s $*" >>"$CALLS"\n' "$1" && cat; } >"bin/$1"
    chmod +x "bin/$1"
}

# try EXPECTED-STATUS COMMAND...: runs it anew; what it says is in "said".
try()
{
    local expected=$1 status=0
    shift
    : >"$CALLS"
    rm -f attempts
    "$@" >said 2>&1 </dev/null || status=$?
    [ "$status" -eq "$expected" ] || fail "$* ends with $status"
}

fail()
{
    printf '%s\n' "$1, having said:" "$(cat said)" "and called:" "$(cat "$CALLS")" >&2
    exit 1
}

# says LINE...: exactly these lines.
says()
{
    [ "$(cat said)" = "$(printf '%s\n' "$@")" ] || fail "Not as expected: $*"
}

calls()
{
    diff <(printf '%s\n' "$@") "$CALLS" || fail "Other calls"
}

installed='echo -n installed'
fake dpkg-query <<<"$installed"
fake sudo <<<'"$@"'
fake ctest </dev/null
fake cmake </dev/null

# Help comes before anything else.
for script in run test; do
    try 0 "./$script" --help
    grep -q "^Usage: ./$script" said || fail "No help"
    [ ! -s "$CALLS" ] || fail "More than help"
done
fake headunit <<<'echo "the options of the simulator"'
mv bin/headunit build/release/simulator
try 0 ./run --vnc -h
grep -q "^the options of the simulator$" said || fail "No help of the simulator"

# One line for each stage.
try 0 ./run --headless
says "Configuring (release)." "Building (release)." "Running the simulated unit." \
    "the options of the simulator"
try 0 ./test tst_
says "Configuring (ci)." "Building (ci)." "Running the tests (ci)."
grep -qx "ctest --preset ci --tests-regex tst_" "$CALLS" || fail "Other tests"

# They have a folder for temporary files of their own, for all users, and it goes with what they leave there.
fake ctest <<<'echo "$TMPDIR" >>"$CALLS" && stat --format %a "$TMPDIR" && mkdir "$TMPDIR/left" && exit 3'
mkdir tmp
TMPDIR=$work/tmp try 3 ./test
says "Configuring (ci)." "Building (ci)." "Running the tests (ci)." 1777
[[ $(tail -n 1 "$CALLS") = "$work/tmp/"* ]] || fail "Temporary files elsewhere"
[ -z "$(ls tmp)" ] || fail "Temporary files are left"
fake ctest </dev/null

# Each option has its preset.
while read -r option preset; do
    try 0 ./test "$option"
    says "Configuring ($preset)." "Building ($preset)." "Running the tests ($preset)."
    grep -qx "ctest --preset $preset" "$CALLS" || fail "Other tests"
done <<'END'
--fast dev
--sanitize asan
--sanitize=thread tsan
END
try 2 ./test --sanitize=all
grep -q "^Usage: ./test" said || fail "No help"

# Each fuzzer is fed, or those that match; one finding is enough to fail.
fuzzers=build/fuzz/tests/fuzz
mkdir -p "$fuzzers"
for reader in one two; do
    printf '#!/bin/sh\necho "%s $*" >>"$CALLS"; echo "#7\tDONE   cov: 5 ft: 6" >&2\n' $reader >"$fuzzers/fuzz_$reader"
    chmod +x "$fuzzers/fuzz_$reader"
done
try 0 ./test --fuzz
says "Configuring (fuzz)." "Building (fuzz)." "Feeding (one)." "  7 inputs, cov: 5, nothing found" \
    "Feeding (two)." "  7 inputs, cov: 5, nothing found"
grep -q "^cmake --build --preset fuzz --target fuzzers" "$CALLS" || fail "Other targets"
grep -q "^one -max_total_time=600 .* build/fuzz/corpora/one tests/fuzz/one$" "$CALLS" || fail "Not fed"
grep -qx "one -runs=0 build/fuzz/corpora/one" "$CALLS" || fail "No look for leaks"
try 0 ./test --fuzz=5 tw
says "Configuring (fuzz)." "Building (fuzz)." "Feeding (two)." "  7 inputs, cov: 5, nothing found"
grep -q "^two -max_total_time=5 " "$CALLS" || fail "Fed otherwise"
printf '#!/bin/sh\necho status; echo "==1==ERROR: oops"; exit 1\n' >"$fuzzers/fuzz_one"
try 1 ./test --fuzz
says "Configuring (fuzz)." "Building (fuzz)." "Feeding (one)." "==1==ERROR: oops" \
    "Feeding (two)." "  7 inputs, cov: 5, nothing found"
printf '#!/bin/sh\n[ "$1" != -runs=0 ] || { echo "==1==ERROR: leaks"; exit 1; }\n' >"$fuzzers/fuzz_one"
try 1 ./test --fuzz one
says "Configuring (fuzz)." "Building (fuzz)." "Feeding (one)." "==1==ERROR: leaks"

# All tests but those that look themselves.
fake strace <<<'shift 11; "$@"'
try 0 ./test --contained tst_
says "Configuring (ci)." "Building (ci)." "Running the tests (ci), and looking what they change." \
    "0 of 0 calls change files; outside of the folders: 0"
grep -qx "ctest --preset ci --timeout 1200 --exclude-regex _contained\$ --tests-regex tst_" "$CALLS" ||
    fail "Other tests"
rm bin/strace

# What has run is told, and counted anew each time.
fake gcovr <<<'echo "lines: 98%"'
mkdir -p build/coverage
touch build/coverage/old.gcda
try 0 ./test --coverage tst_
says "Configuring (coverage)." "Building (coverage)." "Running the tests (coverage)." "lines: 98%"
[ ! -e build/coverage/old.gcda ] || fail "Counts of an earlier run"
grep -qx "ctest --preset coverage --exclude-regex ^(packaging|lint)_ --tests-regex tst_" "$CALLS" ||
    fail "Other tests"

# Nothing but what the sources include is made for the programs that read them, and no test is run. They
# read each source once, and nothing that was generated but for what joins tests; one finding is enough to fail.
mkdir -p build/lint
joined=build/lint/tests/room/CMakeFiles/roomtests.dir/Unity/unity_0_cxx.cxx
printf '  "file": "%s",\n' "$work"/{one.cpp,two.cpp,one.cpp,tests/three.cpp,"$joined",build/lint/moc.cpp} \
    >build/lint/compile_commands.json
fake clang-tidy <<<'echo "12 warnings generated." >&2'
fake clazy-standalone </dev/null
try 0 ./test --lint
says "Configuring (lint)." "Building (lint)." "Reading the sources (clang-tidy, clazy)."
grep -q "^cmake --build --preset lint --target generated" "$CALLS" || fail "Not what the sources include"
for program in "clang-tidy" "clazy-standalone"; do
    for file in one.cpp two.cpp tests/three.cpp "$joined"; do
        [ "$(grep -c "^$program .*-p build/lint $work/$file$" "$CALLS")" = 1 ] || fail "$program: $file"
    done
done
! grep -q "moc.cpp\|^ctest" "$CALLS" || fail "More than the sources"
[ "$(grep "no-non-pod-global-static" "$CALLS" | grep -o "[^/]*$" | sort)" = $'three.cpp\nunity_0_cxx.cxx' ] ||
    fail "The tests' own checks of clazy"
[ "$(grep "config-file=tests/.clang-tidy" "$CALLS" | grep -o "[^/]*$")" = unity_0_cxx.cxx ] ||
    fail "The tests' own checks of clang-tidy"
for program in clang-tidy clazy-standalone; do
    fake "$program" <<<'[[ $* != *two.cpp ]] || { echo "two.cpp:1: oops" && exit 1; }'
    try 1 ./test --lint
    says "Configuring (lint)." "Building (lint)." "Reading the sources (clang-tidy, clazy)." "two.cpp:1: oops"
    fake "$program" </dev/null
done

# The packages are made, and tried where nothing else is; while the archive is being updated once more, and shown what
# goes wrong otherwise.
mkdir -p tests/packaging build/release/packaging
cp "$source"/tests/packaging/*bareroot.sh tests/packaging
touch build/release/packaging/one.deb
fake apt-get <<<'echo archive'
fake sleep </dev/null
fake mmdebstrap <<'END'
echo x >>attempts
[ "$(wc -l <attempts)" -ge 3 ] || { echo "E: File has unexpected size (1 != 2). Mirror sync in progress?" >&2 && exit 1; }
echo "works" >&3
END
try 0 ./test --packages
again="The archive is being updated: trying again in 60 s."
says "Configuring (release)." "Building (release)." "$again" "$again" works
grep -q "^cmake --build --preset release --target packages" "$CALLS" || fail "No packages"
grep -q "^mmdebstrap .*copy-in $work/tests/packaging/inbareroot.sh $work/build/release/packaging/one.deb /root" "$CALLS" ||
    fail "Other files"
fake mmdebstrap <<<'echo "E: oops" >&2 && exit 1'
try 1 ./test --packages
says "Configuring (release)." "Building (release)." "E: oops"
rm bin/sleep

# The system for the unit's processor is fetched once: without devices, with links that lead to where they would lead
# on the unit, and with the host's tools.
export XDG_CACHE_HOME=$work/cache
fake mmdebstrap <<'END'
mkdir -p made/{dev,usr/lib/qt5/bin}
touch made/dev/null made/usr/lib/qt5/bin/moc
ln -s /usr/lib/there made/usr/link
tar --create --directory=made --file="${@: -2:1}" .
END
try 0 ./test --armhf tst_
says "Fetching a system for armhf." "Configuring (armhf)." "Building (armhf)." "Running the tests (armhf)."
grep -q "^mmdebstrap .*--architectures=armhf .* deb archive " "$CALLS" || fail "Another system"
grep -qx "ctest --preset armhf --tests-regex tst_" "$CALLS" || fail "Other tests"
system=build/sysroot-armhf
[ "$(ls $system $system/dev)" = "$(printf '%s\n' "$system:" dev usr "" "$system/dev:")" ] || fail "Other files"
[ "$(readlink $system/usr/link $system/usr/lib/qt5/bin/moc)" = "$(printf '%s\n' lib/there /usr/lib/qt5/bin/moc)" ] ||
    fail "Other links"
[ "$(ls cache/factorydebug)" = sysroot-armhf ] || fail "Rests"
try 0 ./test --armhf
! grep -q ^mmdebstrap "$CALLS" || fail "Fetched twice"

# All is measured, and then counted; with --accept-instructions only counted.
programs=build/release/benchmarks
mkdir -p "$programs" benchmarks
for program in bench_startup bench_gps; do
    echo "echo $program ran" >"$programs/$program"
    chmod +x "$programs/$program"
done
echo 'echo "counts $*"' >benchmarks/count-instructions
chmod +x benchmarks/count-instructions
fake size <<<'echo ".text 1000 0"'
fake nm <<<'echo "0 0000000200 r qt_resource_data"'
try 0 ./test --bench
says "Configuring (release)." "Building (release)." "Measuring (bench_gps)." "bench_gps ran" \
    "Measuring (bench_startup)." "bench_startup ran" "The plug-in's sections, in bytes:" "  .text 1000" \
    "  pictures 200" "Counting." "counts $programs/bench_instructions benchmarks/instructions.txt"
echo 'echo oops >&2 && exit 3' >"$programs/bench_gps"
try 1 ./test --bench
says "Configuring (release)." "Building (release)." "Measuring (bench_gps)." oops
try 0 ./test --accept-instructions
says "Configuring (release)." "Building (release)." "Counting." \
    "counts $programs/bench_instructions benchmarks/instructions.txt --accept"

# What goes wrong in a build is shown, and ends it.
fake cmake <<'END'
echo "-- status"
[[ $1 != --build ]] || { echo "main.cpp:1: error: oops" && exit 1; }
END
try 1 ./run
says "Configuring (release)." "Building (release)." "-- status" "main.cpp:1: error: oops"
try 1 ./test
says "Configuring (ci)." "Building (ci)." "-- status" "main.cpp:1: error: oops"
fake cmake <<<'echo "-- status" && echo "CMake Error: oops" >&2 && exit 1'
try 1 ./run
says "Configuring (release)." "CMake Error: oops"

# Pictures that differed become references, beside what they replace, and those that nothing makes go.
differences=build/ci/tests/pictures/differences
mkdir -p "$differences" tests/pictures docs/pictures
left=build/ci/tests/journals/differences
mkdir -p "$left" tests/journals
echo new >"$left/menu.txt"
try 0 ./test --accept-journals
says "Renewed: tests/journals/menu.txt"
[ "$(cat tests/journals/menu.txt)" = new ] || fail "No new list"
try 0 ./test --accept-journals
says ""
try 0 ./test --accept-pictures
says ""
for picture in "$differences"/{menu,new,unit}-got.png "$differences"/menu-difference.png; do
    echo "new $picture" >"$picture"
done
echo old | tee tests/pictures/{menu,gone,kept}.png docs/pictures/unit.png >/dev/null
echo gone.png >"$differences/unmade"
try 0 ./test --accept-pictures
says "Renewed: tests/pictures/menu.png" "Renewed: tests/pictures/new.png" \
    "Renewed: docs/pictures/unit.png" "Removed: tests/pictures/gone.png"
[ ! -s "$CALLS" ] || fail "More than pictures"
[ "$(cat tests/pictures/{kept,menu,new}.png docs/pictures/unit.png)" = "$(printf '%s\n' old \
    "new $differences"/{menu,new,unit}-got.png)" ] || fail "Other references"
[ -z "$(ls "$differences")" ] || fail "Differences are left"

# Another package manager's lock is waited for, other failures are shown at once.
fake dpkg-query <<<'[[ $* != *there ]] || '"$installed"
fake apt-get <<'END'
echo "progress"
echo x >>attempts
if [ "$(wc -l <attempts)" -le 2 ]; then
    echo "E: Could not get lock /var/lib/apt/lists/lock. It is held by process 1 (apt)" >&2
    exit 100
fi
END
try 0 cmake/install-packages there one two
says "Installing: one two" "Waiting for another package manager to end."
grep -v "^sudo\|^dpkg-query" "$CALLS" >kept
mv kept "$CALLS"
update="apt-get -qq update"
calls "$update" "$update" "$update" "apt-get -qq install -y --no-install-recommends one two"
fake apt-get <<<'echo "E: Unable to locate package one" >&2 && exit 100'
try 1 cmake/install-packages one
says "Installing: one" "E: Unable to locate package one"
try 0 cmake/install-packages there
says ""
