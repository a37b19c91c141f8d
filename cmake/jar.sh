#!/bin/sh
# usage: jar.sh JAVAC JAR DIRECTORY CLASSPATH TARGET SOURCE...
# Compiles the proxies that SWIG has written below DIRECTORY/java, whose names are not known in advance, with the other
# sources, and packs them. The compiler is silent about sun.misc.Unsafe and finalizers, but not about errors.
set -eu
javac=$1 jar=$2 directory=$3 classpath=$4 target=$5
shift 5
rm -rf "$directory/classes"
"$javac" -nowarn -XDignore.symbol.file -Xlint:none -encoding UTF-8 -cp "$classpath" -d "$directory/classes" \
    "$directory"/java/ui/data/platform/*.java "$@"
"$jar" --create --file "$target" --manifest "$directory/manifest.txt" -C "$directory/classes" .
