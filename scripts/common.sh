# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
#
# What the workshop scripts share. Sourced first: strict mode, the current folder (kept in
# started_in) changed to the root of the tree, and two ways of saying something.
set -euo pipefail
started_in=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export HOME=${HOME:-~}

say() { printf 'scripts/%s: %s\n' "${0##*/}" "$*"; }
die() {
  say "$*" >&2
  exit 1
}
