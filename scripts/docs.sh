#!/usr/bin/env bash
# Rewrites the generated pages: the public headers, the tool's reference and the findings.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/headers.py >build/headers.md && mv build/headers.md docs/headers.md
build/release/tools/zr-platform/zr-platform --reference markdown >docs/zr-platform.md
build/release/tools/zr-platform/zr-platform --reference findings >docs/validate.md
