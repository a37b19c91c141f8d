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
LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) "$scratch/describe" "$sample" | grep 'bank HBM\[31\] in SLR0'

# The C interface, as a program outside of the tree sees it.
strict=(-std=c11 -Wall -Wextra -Wpedantic -Werror)
cc "${strict[@]}" "$source/examples/c/inspect.c" -o "$scratch/inspect" $(pkg-config --cflags --libs zr_platform)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) "$scratch/inspect" "$sample" | grep 'u77.hpfm:18: .*\[partly-default-hbm\]'
cc "${strict[@]}" "$source/tests/c/zr_platform_test.c" -o "$scratch/c" $(pkg-config --cflags --libs zr_platform)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) "$scratch/c" "$source/examples/harrier/hw/harrier.cfa"
echo '#include <platform/zr_platform.hpp>' >"$scratch/wrapper.cpp"
c++ -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only "$scratch/wrapper.cpp" $(pkg-config --cflags zr_platform)

sed -n '/^```cpp$/,/^```$/p' "$source/docs/interface.md" | grep -v '^```' >"$scratch/page.cpp"
c++ -std=c++20 -Wall -Wextra -Werror "$scratch/page.cpp" -o "$scratch/page" $(pkg-config --cflags --libs zr_platform)
(cd "$scratch" && LD_LIBRARY_PATH=$(pkg-config --variable=libdir zr_platform) ./page "$sample" && grep -q repository out.hpfm)

library=$(find "$scratch/prefix" -name 'libzr_platform.so.*.*.*')
readelf -d "$library" | grep -F 'SONAME' | grep -F 'libzr_platform.so.2026'
# Each function of the C interface is exported, and called by its test; no other is exported.
grep -ohE '\bzr_[a-z_]+\(' "$source"/include/platform/zr_*.h | tr -d '(' | sort -u >"$scratch/declared"
nm -D --defined-only "$library" | grep -oE ' zr_[a-z_]+$' | tr -d ' ' | sort -u | diff "$scratch/declared" - ||
    { echo "declared (<) and exported (>) differ" && exit 1; }
grep -oE '\bzr_[a-z_]+\(' "$source/tests/c/zr_platform_test.c" | tr -d '(' | sort -u | comm -23 "$scratch/declared" - |
    { ! grep . || { echo "not called by tests/c/zr_platform_test.c" && exit 1; }; }
# Nothing but the public names: the C functions, and members, type information and tables of public classes.
public=$(find "$source/include" -name '*.h' -exec basename {} .h \; | paste -sd'|')
extra=$(nm -D --defined-only -C "$library" | cut -d' ' -f3- | grep -vE '^hteq_|^zr_|^Java_ui_data_platform_platform_|^(\w+ )*(typeinfo( name)?|vtable|VTT|(non-virtual|virtual) thunk) (for|to) ' |
    grep -vE "^(teq_platform::|teq::platform::|jun::tcltasks::)?($public|task_limits|JSONObjectWriter|JSONListWriter|HEX[A-Za-z]+|HXMLException|requests|RequestError|currentFailure|checkSystem|systemFailed|scanJsonPath|withoutMarkers|rowOf|fileKindOf|ComMsgMgrInstance|HHSMHardwareDb)(::|\b)" || true)
if [ -n "$extra" ]; then
    echo "exported, and not public:" && echo "$extra" && exit 1
fi
"$scratch/prefix/bin/zr-platform" --version
