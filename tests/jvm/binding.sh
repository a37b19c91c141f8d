#!/usr/bin/env bash
# usage: binding.sh LIBRARY JARS LIST SOURCE DESCRIPTOR
# The list of native functions, the library's symbols and the methods of the Java class are the same; and the binding in
# a JVM that checks its native code.
set -euo pipefail
library=$1 jars=$2 list=$3 source=$4 descriptor=$5
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
classpath=$jars/zr-platform.jar:$jars/zr-platform-exceptions.jar

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

javac -Xlint:all -Werror -cp "$classpath" -d "$scratch" "$source/tests/jvm/BindingTest.java" \
    "$source/examples/java/Describe.java"
java -Xcheck:jni -cp "$classpath:$scratch" BindingTest "$library" "$descriptor" >"$scratch/out" 2>&1 || {
    cat "$scratch/out"
    exit 1
}
if grep -A3 -E '^(WARNING in native method|WARNING: JNI|FATAL ERROR)' "$scratch/out"; then exit 1; fi

java -cp "$classpath:$scratch" -Djava.library.path="$(dirname "$library")" Describe "$(dirname "$descriptor")" \
    "$descriptor" 2>/dev/null | diff "$source/tests/jvm/describe.txt" -
