#!/usr/bin/env bash
# usage: pack.sh TOOL OUTDIR
# Makes the sample platforms as a vendor delivers them: each folder here whose name ends in .lfa, .cfa or .hdf becomes the
# archive of that name below OUTDIR, all other files are copied. The folders themselves are copied to OUTDIR/src.
# OUTDIR/share is an application root with the documentation of keys and a list of support exceptions.
# OUTDIR/morwen is the tool's installation that builds emulations.
# What an earlier run made is replaced; nothing else in OUTDIR is touched.
set -euo pipefail
tool=$(realpath -e "$1")
mkdir -p "$2/src"
out=$(realpath -e "$2")
cd "$(dirname "${BASH_SOURCE[0]}")"
mkdir -p "$out/share/platforms"
cp ../share/platforms/platform_keys_doc.json "$out/share/platforms"
cp share/* "$out/src"
"$tool" exceptions pack share/exceptions.json "$out/share/platforms/achromatic" --force
rm -rf "$out/morwen"
cp -R morwen "$out"
for sample in u77 heron osprey harrier lone boards; do
    find "$sample" -type d \( -name '*.lfa' -o -name '*.cfa' -o -name '*.hdf' \) -prune -print | while read -r folder; do
        mkdir -p "$out/$(dirname "$folder")"
        # Packed without --force, which would also accept missing listed files, except the archive that is meant to
        # be refused and what is not a platform.
        rm -f "$out/$folder"
        case $folder in */dunlin_next.cfa | *.hdf) force='--force --quiet' ;; *) force= ;; esac
        "$tool" pack "$folder" "$out/$folder" $force
        rm -rf "$out/src/${folder##*/}"
        cp -R "$folder" "$out/src/"
    done
    find "$sample" -type d \( -name '*.lfa' -o -name '*.cfa' -o -name '*.hdf' \) -prune -o -type f -print | while read -r file; do
        mkdir -p "$out/$(dirname "$file")"
        cp "$file" "$out/$file"
    done
done
"$tool" from-hdf "$out/lone/merlin.hdf" "$out/lone/merlin.lfa" --force
