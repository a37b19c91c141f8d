#!/usr/bin/env bash
# usage: pack.sh TOOL OUTDIR
# Makes the sample platforms as a vendor delivers them: each folder here whose name ends in .lfa or .cfa becomes the
# archive of that name below OUTDIR, all other files are copied. The folders themselves are copied to OUTDIR/src.
set -euo pipefail
tool=$(realpath "$1")
out=$(realpath -m "$2")
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$out"
mkdir -p "$out/src"
cd "$here"
for sample in u77 lone; do
    find "$sample" -type d \( -name '*.lfa' -o -name '*.cfa' \) -prune -print | while read -r folder; do
        mkdir -p "$out/$(dirname "$folder")"
        "$tool" pack "$folder" "$out/$folder"
        cp -r "$folder" "$out/src/"
    done
    find "$sample" -type d \( -name '*.lfa' -o -name '*.cfa' \) -prune -o -type f -print | while read -r file; do
        mkdir -p "$out/$(dirname "$file")"
        cp "$file" "$out/$file"
    done
done
