#!/usr/bin/env bash
# Rewrites what is made from the tables: the tool's reference page and the findings.
set -euo pipefail
cd "$(dirname "$0")/.."
build/release/tools/zr-platform/zr-platform --reference markdown >docs/zr-platform.md
build/release/tools/zr-platform/zr-platform --reference findings >docs/validate.md
