#!/usr/bin/env bash
# usage: installed.sh BUILD SOURCE SAMPLE
# Installs the library and uses it from outside: a CMake project, a C program by pkg-config, and the names it exports.
set -euo pipefail
build=$1 source=$2 sample=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/prefix" >/dev/null

cmake -S "$source/tests/use" -B "$scratch/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/cmake" >/dev/null
"$scratch/cmake/use_zr_platform" "$sample" | grep -x 'u77_gen3x16_base_1 tzu77-.*'

export PKG_CONFIG_PATH=$(dirname "$(find "$scratch/prefix" -name zr_platform.pc)")
cc -std=c11 -Wall -Werror "$source/examples/c/describe.c" -o "$scratch/describe" $(pkg-config --cflags --libs zr_platform)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) "$scratch/describe" "$sample" | grep '"vendor": "torvane"'

sed -n '/^```cpp$/,/^```$/p' "$source/docs/interface.md" | grep -v '^```' >"$scratch/page.cpp"
c++ -std=c++20 -Wall -Wextra -Werror "$scratch/page.cpp" -o "$scratch/page" $(pkg-config --cflags --libs zr_platform)
(cd "$scratch" && LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) ./page "$sample" && grep -q repository out.hpfm)

library=$(find "$scratch/prefix" -name 'libzr_platform.so.*.*.*')
readelf -d "$library" | grep -F 'SONAME' | grep -F 'libzr_platform.so.2026'
# Nothing but the public names: the three C functions, and members, type information and tables of public classes.
public=$(find "$source/include" -name '*.h' -exec basename {} .h \; | paste -sd'|')
extra=$(nm -D --defined-only -C "$library" | cut -d' ' -f3- | grep -vE '^hteq_|^(\w+ )*(typeinfo( name)?|vtable|VTT|(non-virtual|virtual) thunk) (for|to) ' |
    grep -vE "^(teq_platform::|teq::platform::)?($public|JSONObjectWriter|JSONListWriter|HEX[A-Za-z]+|HXMLException|FileProblem|ComMsgMgrInstance|HHSMHardwareDb)(::|\b)" || true)
if [ -n "$extra" ]; then
    echo "exported, and not public:" && echo "$extra" && exit 1
fi
"$scratch/prefix/bin/zr-platform" --version
