# SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
# SPDX-License-Identifier: MIT
#
# Shared by the other scripts, which source it first: sets strict mode, changes to the root of the
# tree (started_in keeps the folder the user was in), and defines say and die.
set -euo pipefail
started_in=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export HOME=${HOME:-~}

say() { printf 'scripts/%s: %s\n' "${0##*/}" "$*"; }
die() {
  say "$*" >&2
  exit 1
}
