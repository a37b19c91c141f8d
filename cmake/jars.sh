#!/bin/sh
# usage: jars.sh JAVAC JAR JAVADOC DIRECTORY SOURCES CLASSPATH VERSION
# Compiles the proxies that SWIG has written below DIRECTORY/java, whose names are not known in advance, with SOURCES, and
# packs classes, sources and documentation. The compiler is silent about sun.misc.Unsafe, which --release would hide, and
# about finalizers, but not about errors.
set -eu
javac=$1 jar=$2 javadoc=$3 directory=$4 sources=$5 classpath=$6 version=$7
rm -rf "$directory/classes" "$directory/doc"
find "$directory/java" "$sources" -name '*.java' >"$directory/files.txt"
"$javac" -nowarn -XDignore.symbol.file -Xlint:none -encoding UTF-8 -cp "$classpath" -d "$directory/classes" \
    "@$directory/files.txt"
"$javadoc" -quiet -notimestamp -Xdoclint:none -encoding UTF-8 -cp "$classpath" -d "$directory/doc" \
    -windowtitle "zr_platform $version" "@$directory/files.txt" >"$directory/doc.log" 2>&1 || {
    cat "$directory/doc.log" >&2
    exit 1
}
"$jar" --create --file "$directory/zr-platform.jar" --manifest "$directory/manifest.txt" -C "$directory/classes" .
"$jar" --create --file "$directory/zr-platform-sources.jar" -C "$directory/java" . -C "$sources" .
"$jar" --create --file "$directory/zr-platform-javadoc.jar" -C "$directory/doc" .
