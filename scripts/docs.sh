#!/usr/bin/env bash
# Rewrites the generated pages: the public headers, the tool's reference, the findings, the policy's rules, the file
# types; and the documentation of keys.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/headers.py >build/headers.md && mv build/headers.md docs/headers.md
build/release/tools/zr-platform/zr-platform --reference markdown >docs/zr-platform.md
build/release/tools/zr-platform/zr-platform --reference findings >docs/validate.md
build/release/tools/zr-platform/zr-platform --reference policy >docs/policy-rules.md
build/release/tools/zr-platform/zr-platform --reference file-types >docs/file-types.md
scripts/keys.py build/release/tools/zr-platform/zr-platform >build/keys.json && mv build/keys.json share/platforms/platform_keys_doc.json
