#!/usr/bin/env bash
# Runs the tour of every exported function on Linux and under Wine, on the English sample in code page 1252 and on the
# Japanese one in code page 932, and compares what they print, byte by byte; then sees that bad input ends in status
# codes. compare-tours.sh LINUX-BUILD WIN32-BUILD
set -euo pipefail
cd "$(dirname "$0")/.."
linux=$(realpath "$1") windows=$(realpath "$2")
list=$PWD/cmake/exports.txt
work=$(mktemp -d "$windows/tours.XXXXXX")
trap 'rm -rf "$work"' EXIT

fail() {
    echo "compare-tours: $*" >&2
    exit 1
}

# A folder with a host program, the library and the shipped files, as an installation has it.
stage_linux() {  # folder, [host program]
    mkdir -p "$1"
    cp data/sample/*.mdb "$linux/src/libkalodata.so" "$1"
    cp "$linux/tests/tour" "$1/${2:-tour}"
}
stage_windows() {
    mkdir -p "$1"
    cp data/sample/*.mdb "$windows/src/Kalodata.dll" "$1"
    cp "$windows/tests/tour.exe" "$1/${2:-tour}.exe"
}

# tour_* FOLDER WORKING-FILE LANGUAGE [HOST-PROGRAM]
tour_linux() { (cd "$1" && "./${4:-tour}" ./libkalodata.so "$list" "$2" "$3"); }
tour_windows() { (cd "$1" && "$OLDPWD/scripts/wine-run.sh" "./${4:-tour}.exe" Kalodata.dll "$list" "$2" "$3"); }

compare() {  # language, locale, code page, folder, host program, working file
    local folder=$4 program=$5 file=$6
    stage_linux "$work/linux/$folder" "$program"
    stage_windows "$work/windows/$folder" "$program"
    TOUR_CODE_PAGE=$3 tour_linux "$work/linux/$folder" "$file" "$1" "$program" >"$work/linux-$1.txt" &
    local beside=$!
    KALODATA_WINE_LOCALE=$2 tour_windows "$work/windows/$folder" "$file" "$1" "$program" >"$work/windows-$1.txt" ||
        fail "the tour under $3 ended with $?: $(grep -a FAULT "$work/windows-$1.txt" | head -n 5)"
    wait $beside || fail "the tour on Linux ended with $?: $(grep -a FAULT "$work/linux-$1.txt" | head -n 5)"
    if ! cmp -s "$work/linux-$1.txt" "$work/windows-$1.txt"; then
        diff -a "$work/linux-$1.txt" "$work/windows-$1.txt" | head -n 20 >&2 || true
        fail "Linux (<) and Windows (>) differ under $3"
    fi
    echo "$3: $(wc -l <"$work/linux-$1.txt") lines of the tours are equal"
}

# A tour without a database: it must come to its end, and say that nothing was opened.
expect_refusal() {  # case, folder, working file, [command prefix]
    local status=0
    local name=$1 folder=$2 file=$3
    tour_windows "$folder" "$file" 0 >"$work/refusal.txt" || status=$?
    [[ $status == 3 ]] || fail "$name: the tour ended with $status"
    echo "$name: $(grep -aE '^Kalo(Copy|Open) ' "$work/refusal.txt" | head -n 2 | tr '\n' ' ')"
}

missing_file() {
    stage_windows "$work/missing"
    rm "$work/missing/IdeInfo.mdb"
    expect_refusal "missing shipped file" "$work/missing" Work.mdb
}

damaged_file() {
    stage_windows "$work/damaged"
    head -c 1000000 data/sample/IdeInfo.mdb >"$work/damaged/IdeInfo.mdb"
    expect_refusal "damaged shipped file" "$work/damaged" Work.mdb
}

file_in_use() {
    stage_windows "$work/held"
    cp data/sample/IdeInfoJ.mdb "$work/held/Work.mdb"
    coproc holder { scripts/wine-run.sh "$windows/tests/hold_file.exe" "$work/held/Work.mdb"; }
    read -r answer <&"${holder[0]}"
    [[ $answer == held* ]] || fail "the file could not be held"
    expect_refusal "file in use" "$work/held" Work.mdb
    eval "exec ${holder[1]}>&-"
    wait "$holder_PID"
    cmp "$work/held/Work.mdb" data/sample/IdeInfoJ.mdb || fail "a file in use was changed"
}

# The mount in front makes a folder that even root cannot write.
read_only_folder() {
    stage_windows "$work/read-only"
    mkdir "$work/read-only/data"
    as_root unshare --mount bash -euc '
        mount --bind "$1/data" "$1/data" && mount -o remount,ro,bind "$1/data"
        cd "$1" && status=0
        "$2/scripts/wine-run.sh" ./tour.exe Kalodata.dll "$3" data/Work.mdb 0 >../refusal.txt || status=$?
        [[ $status == 3 ]]' read-only "$work/read-only" "$PWD" "$list" || fail "read-only folder"
    echo "read-only folder: $(grep -aE '^Kalo(Copy|Open) ' "$work/refusal.txt" | head -n 2 | tr '\n' ' ')"
}

source scripts/as-root.sh
compare 0 en_US.UTF-8 CP1252 english tour Work.mdb
# The trail bytes of these letters are backslashes in code page 932.
compare 1 ja_JP.UTF-8 CP932 'ソフト 表示 能力' 表 '予定 表.mdb'
missing_file
damaged_file
file_in_use
read_only_folder
