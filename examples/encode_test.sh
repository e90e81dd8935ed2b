#!/usr/bin/env bash
# The sample of categories is what its source says, and a line that cannot be encoded is an error.
set -euo pipefail

readonly encode=$1 samples=$2

"$encode" <"$samples/categories.json" | cmp - "$samples/categories.ast"
! echo '{"category":65,"I000":256}' | "$encode"
