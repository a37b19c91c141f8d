#!/usr/bin/env bash
# The figures of docs/performance.md, on inputs made by bench/gen.py.
# usage: bench.sh [ROUNDS]       documents, start, parts of the library
#        bench.sh 300 [ROUNDS]   changing and checking an archive of 300 MB, which takes 2 GB of disk
#        bench.sh derive [MB]    making archives of that size (default: 500), which takes three times as much of disk
#        bench.sh java [ROUNDS]  calls of the JVM binding (also part of the first)
set -euo pipefail
cd "$(dirname "$0")/.."
source=$PWD
bin=$source/build/bench/bench
tool=$source/build/bench/tools/zr-platform/zr-platform
data=$source/build/bench-data

# The programs find the library as an installed one: in the loader's cache, here a private one, so that no directories are
# searched when they start.
if [ -z "${ZR_BENCH_INSTALLED:-}" ]; then
    cache=$source/build/bench/loader.cache
    printf 'include /etc/ld.so.conf.d/*.conf\n%s\n' "$source/build/bench" >"$cache.conf"
    /sbin/ldconfig -X -f "$cache.conf" -C "$cache"
    ZR_BENCH_INSTALLED=1 exec unshare --mount --map-root-user bash -c \
        'mount --bind "$1" /etc/ld.so.cache && exec bash "${@:2}"' bash "$cache" "$source/scripts/bench.sh" "$@"
fi

inputs() {
    [ "$data/properties.json" -nt bench/gen.py ] || python3 bench/gen.py "$data"
}

large() { # ROUNDS
    [ -f "$data/a300.lfa" ] || python3 bench/gen.py "$data" 300
    cd "$data"
    "$bin/replace" stamp a300.lfa
    local way
    for way in ours one one-synced three; do cp a300.lfa "$way.lfa"; done
    sync
    echo "== a file put into an archive of 300 MB (the name of the archive is the way)"
    "$bin/interleave" "$1" ours "$bin/replace ours ours.lfa new.bit" -- \
        "one libzip close" "$bin/replace one one.lfa new.bit" -- \
        "one libzip close, synced" "$bin/replace one-synced one-synced.lfa new.bit" -- \
        "three libzip closes" "$bin/replace three three.lfa new.bit"
    echo "== its check"
    "$bin/interleave" "$1" ours "$bin/replace verify ours.lfa" -- \
        "sha256sum, then unzip -t" "sha256sum ours.lfa | cat && unzip -tq ours.lfa"
    if command -v strace >/dev/null; then
        echo "== system calls of one change"
        strace -o trace -e trace=write,pwrite64,rename,renameat,fsync "$bin/replace" ours ours.lfa new.bit
        awk '/=/ { n[$1 ~ /^(p?write)/ ? "write" : substr($1, 1, index($1, "(") - 1)]++
               if (/^p?write/) bytes += $NF }
             END { for (call in n) print call, n[call]; print "bytes written", bytes }' trace
        stat -c "bytes of the archive %s" ours.lfa
    fi
    rm -f ours.lfa one.lfa one-synced.lfa three.lfa trace
}

# Bytes written, size of the archive, peak memory. strace would count its own memory, so there are two runs.
measured() { # TITLE ARCHIVE COMMAND...
    local title=$1 archive=$2
    shift 2
    [ -f "$archive.before" ] && cp "$archive.before" "$archive"
    strace -f -o trace -e trace=write,pwrite64,copy_file_range,sendfile "$@" --force >/dev/null
    local bytes memory
    bytes=$(awk '/= [0-9]+$/ { bytes += $NF } END { print bytes }' trace)
    [ -f "$archive.before" ] && cp "$archive.before" "$archive"
    memory=$(python3 -c 'import resource, subprocess, sys
subprocess.run(sys.argv[1:], check=True, stdout=subprocess.DEVNULL)
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)' "$@" --force)
    echo "$title: bytes written $bytes, archive $(stat -c %s "$archive"), peak memory $memory KB"
    rm -f "$archive" "$archive.before"
}

# An archive to put 200 files of 20 KB into.
overlay() {
    mkdir -p older overlay/emu/ip
    mv definition/top.bit older/
    cp "$data/older400k.xml" older/cfa.xml
    "$tool" pack older changed.cfa.before --force
    local i
    for i in $(seq 200); do head -c 20000 /dev/urandom >"overlay/emu/ip/$i.tcl"; done
}

derived() { # MB
    inputs
    mkdir -p "$data/derive/definition"
    cd "$data/derive"
    head -c "$(($1 << 20))" /dev/urandom >definition/top.bit
    echo '<Project top="top"/>' >definition/sysdef.xml
    "$tool" pack definition top.hdf --force
    "$tool" rqa create changed.rqa.before "BIT=old.bit=definition/top.bit" --force
    TMPDIR=$PWD
    export TMPDIR
    echo "== making archives of $1 MB"
    measured create-fixed fixed.lfa "$tool" create-fixed fixed.lfa BIT=top.bit=definition/top.bit
    measured "rqa create" made.rqa "$tool" rqa create made.rqa BIT=top.bit=definition/top.bit
    measured "rqa add" changed.rqa "$tool" rqa add changed.rqa XDC=sysdef.xml=definition/sysdef.xml
    measured from-hdf top.lfa "$tool" from-hdf top.hdf top.lfa
    overlay
    ln changed.cfa.before platform.cfa
    measured emulate built.cfa "$tool" emulate platform.cfa built.cfa --name memss \
        --tool "$source/examples/morwen" --quiet
    measured "updateCfa, 200 files" changed.cfa "$bin/replace" merge changed.cfa overlay
    rm -r "$data/derive"
}

binding() { # ROUNDS
    local build=$source/build/bench samples=$data/samples classes=$data/classes
    [ -d "$build/jvm" ] || return 0  # built without a JDK
    local jars=$build/jvm/zr-platform.jar:$build/jvm/zr-platform-exceptions.jar
    mkdir -p "$samples"
    "$source/examples/pack.sh" "$tool" "$samples" >/dev/null
    javac -cp "$jars" -d "$classes" "$source/bench/java/Speed.java"
    echo "== calls of the JVM binding to calls by hand"
    java -cp "$jars:$classes" Speed "$build/libzr_platform.so" "$bin/libby_hand.so" \
        "$samples/u77/u77_gen3x16_base_1.zdf" "$1"
}

if [ "${1:-}" = java ]; then
    binding "${2:-401}"
    exit
fi
if [ "${1:-}" = 300 ]; then
    large "${2:-7}"
    exit
fi
if [ "${1:-}" = derive ]; then
    derived "${2:-500}"
    exit
fi
rounds=${1:-60}
inputs
cd "$data"

documents() { # TITLE BASE
    echo "== $1"
    "$bin/interleave" "$rounds" floor "$bin/floor $2.zdf $2.lfa" -- ours "$bin/document $2.zdf" -- \
        "ours, short" "$bin/document $2.zdf short" -- plain "$bin/plain $2.zdf $2.lfa" -- \
        "unzip | jq" "unzip -p $2.lfa lfa.json | jq ."
}
documents "document, 400 KB of metadata" a400k
documents "document, 40 KB of metadata" a40k
documents "document, 4 MB of metadata" a4m
echo "== loading and writing, 400 KB of XML metadata and the JSON metadata of the same platform"
"$bin/interleave" "$rounds" "by JSON" "$bin/document byjson.lfa" -- "by XML" "$bin/document byxml.lfa"
echo "== 10 and 100 partitions (the ratio counts)"
"$bin/interleave" "$rounds" "10 partitions" "$bin/document p10.zdf" -- "100 partitions" "$bin/document p100.zdf"
echo "== finding and parsing the descriptors of 1,000 and 10,000 platforms"
"$bin/interleave" "$rounds" scan "$bin/scan find1000" -- ours "$bin/search find find1000" -- \
    "scan, 10,000" "$bin/scan find10000" -- "ours, 10,000" "$bin/search find find10000"
echo "== registry of 1,000 platforms"
"$bin/interleave" $((rounds / 10 + 1)) "single loads" "$bin/search loads repo1000" -- registry "$bin/search registry repo1000"
echo "== catalog of 1,000 platforms"
"$bin/interleave" $((rounds / 10 + 1)) "single loads" "$bin/search loads repo1000" -- \
    "catalog, streamed" "$tool catalog --no-defaults --repo repo1000 --detailed --ndjson --quiet"
echo "== one path of a document to the document, whole processes"
"$bin/interleave" "$rounds" document "$bin/document a400k.zdf" -- query "$tool query a400k.zdf vendor"
echo "== questions and verdicts to loads"
"$bin/bench_questions" --benchmark_repetitions=5 --benchmark_report_aggregates_only --benchmark_enable_random_interleaving \
    2>/dev/null | grep -E 'median|^Bench'
echo "== start of a process"
"$bin/interleave" $((rounds * 4)) "plain C++" "$bin/empty" -- "linked with the library" "$bin/linked"
if command -v strace >/dev/null; then
    echo "== system calls on the archive, one request"
    strace -y -o trace "$bin/document" a400k.zdf >/dev/null
    echo "openat of the archive: $(grep -c 'openat(.*a400k\.lfa' trace)"
    echo "all calls that name it: $(grep -c 'a400k\.lfa' trace)"
    strace -y -o trace "$bin/document" p100.zdf >/dev/null
    echo "libraries for scripts and for writing that a start opens: $(strace "$bin/linked" 2>&1 | grep -cE 'lib(tcl|zip|crypto)')"
    echo "openat of archives, 100 partitions: $(grep -c 'openat(.*rp[0-9]*\.lfa' trace)"
fi
echo "== parts of the library"
"$bin/bench_library" --benchmark_repetitions=5 --benchmark_report_aggregates_only --benchmark_enable_random_interleaving \
    2>/dev/null | grep -E 'median|^Bench'
binding 401
