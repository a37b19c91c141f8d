#!/usr/bin/env bash
# usage: binding.sh BUILD SOURCE LIBRARY HOOKS
# The list of native functions, the library's symbols and the methods of the Java class are the same; the binding in a
# JVM that checks its native code; native memory; what is installed. With ZR_LONG only native memory, for long.
set -euo pipefail
build=$1 source=$2 library=$3 hooks=$4
jars=$build/jvm samples=$build/samples list=$source/src/shared/platform/src/platform_auto_wrap/functions.txt
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export TMPDIR=$scratch/tmp
mkdir "$TMPDIR" "$scratch/classes"
classpath=$jars/zr-platform.jar:$jars/zr-platform-exceptions.jar
descriptor=$samples/u77/u77_gen3x16_base_1.zdf
javac -Xlint:all -Werror -cp "$classpath" -d "$scratch/classes" "$source"/tests/jvm/*.java "$source/examples/java/Describe.java"

# endurance PAIRS LOADS. The interpreter, because compiled code would be part of native memory.
endurance() {
    java -Xint -XX:+UseSerialGC -cp "$classpath:$scratch/classes" Endurance "$library" "$hooks" "$descriptor" "$@"
}
if [ -n "${ZR_LONG:-}" ]; then
    endurance 1000000 10000
    exit
fi

# Each class has as many functions as its line states.
awk '/^[A-Z]/ { class = $1; stated[class] = $2 }
     /^  /    { listed[class]++; print $1 }
     END      { for (c in stated) if (stated[c] != listed[c]) { print c ": not the number of functions" > "/dev/stderr"; bad = 1 }
                exit bad }' "$list" | sort >"$scratch/listed"
[ "$(grep -c '^  ' "$list")" = 764 ]
[ "$(uniq -d "$scratch/listed" | wc -l)" = 0 ]
for kind in '^  new_ 23' '^  delete_ 26' '__SWIG_[0-9]+$ 46' '_SWIGUpcast$ 10'; do
    [ "$(grep -cE "${kind% *}" "$list")" = "${kind##* }" ] || { echo "not as many as $kind in $list" && exit 1; }
done
nm -D --defined-only "$library" | sed -n 's/.* Java_ui_data_platform_platform_//p' | sed 's/_1/_/g' | sort |
    diff "$scratch/listed" - || { echo "listed (<) and exported (>) differ" && exit 1; }
javap -cp "$classpath" ui.data.platform.platform | sed -n 's/.* native .* \(\w*\)(.*/\1/p' | sort |
    diff "$scratch/listed" - || { echo "listed (<) and in the Java class (>) differ" && exit 1; }
if readelf -d "$library" | grep -i 'needed.*\(jvm\|java\)'; then exit 1; fi

cp -R "$samples/u77" "$samples/heron" "$scratch"
java -Xcheck:jni -cp "$classpath:$scratch/classes" BindingTest "$library" "$hooks" "$source/tests/cases/jvm" "$list" \
    "$samples" "$scratch" >"$scratch/log" 2>&1 || {
    cat "$scratch/log"
    exit 1
}
if grep -A3 -E '^(WARNING in native method|WARNING: JNI|FATAL ERROR)' "$scratch/log"; then exit 1; fi
endurance 100000 500

# What is installed: the example, the archives as modules, sources and documentation.
cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
installed=$scratch/prefix/share/java libraries=$(dirname "$(find "$scratch/prefix" -name libzr_platform.so)")
for path in "-cp $installed/zr-platform.jar:$installed/zr-platform-exceptions.jar:$scratch/classes" \
    "--module-path $installed/zr-platform.jar:$installed/zr-platform-exceptions.jar --add-modules ui.data.platform -cp $scratch/classes"; do
    java $path -Djava.library.path="$libraries" Describe "$samples/u77" "$descriptor" 2>/dev/null |
        diff "$source/tests/jvm/describe.txt" -
done
for archive in zr-platform zr-platform-exceptions; do
    unzip -p "$installed/$archive.jar" META-INF/MANIFEST.MF | grep '^Implementation-Version: 2026\.' >/dev/null
done
unzip -l "$installed/zr-platform-sources.jar" | grep ' ui/data/platform/TEQPlatform.java' >/dev/null
unzip -l "$installed/zr-platform-javadoc.jar" | grep ' ui/data/platform/TEQPlatform.html' >/dev/null

cmake -S "$source" -B "$scratch/without" -DCMAKE_DISABLE_FIND_PACKAGE_Java=ON -DZR_TESTS=OFF |
    grep 'The JVM binding is left out: it needs SWIG 4.1 and a JDK 17' >/dev/null
