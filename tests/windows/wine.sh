#!/usr/bin/env bash
# Runs one Windows program under Wine in the private prefix of this checkout:
#   tests/windows/wine.sh PROGRAM.exe [ARGUMENT...]
# Outside of a session (session.sh) it makes one for itself, so that CTest and a person at a prompt
# can call it without preparation. The program's exit status is returned.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if [ -z "${VORNIK_WINE_SESSION:-}" ]; then
  exec "$here/session.sh" "$0" "$@"
fi
exec "$VORNIK_WINE" "$@"
