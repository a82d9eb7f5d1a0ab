#!/usr/bin/env bash
# Installs what the build needs and is missing.
#
#   scripts/installa_dipendenze.sh <gruppo>...
#
# Groups: run (build and start the program), test (sanitizer build, unit and
# screen tests, Windows cross-build under wine), bench, fuzz, format.
#
# Debian/Ubuntu: as root, installs the missing packages with apt-get; otherwise
# prints the one command to run and exits with status 1. macOS: names the
# missing Homebrew formulas. Quiet and fast when everything is present.
#
# Package names never contain spaces, so plain strings hold the lists and are
# split on purpose (this also keeps the script working with the bash 3.2 of
# macOS); globbing is off.
# shellcheck disable=SC2086
set -euo pipefail -f

[ $# -gt 0 ] || set -- test

debian_run="build-essential cmake pkg-config libncurses-dev portaudio19-dev"
debian_test="libgtest-dev libgmock-dev libbenchmark-dev tmux python3-pyte python3-pexpect
  g++-mingw-w64-x86-64-posix wine64 wine pgn-extract strace fenrir"
debian_bench="libbenchmark-dev libvterm-dev python3-pyte python3-pexpect stockfish"
debian_fuzz="build-essential cmake clang-14 libclang-rt-14-dev"
debian_format="clang-format"

brew_run="cmake pkg-config ncurses portaudio"
brew_test="googletest google-benchmark tmux mingw-w64"
brew_bench="google-benchmark libvterm stockfish"
brew_fuzz="cmake llvm"
brew_format="clang-format"
pip_python="pyte pexpect"

pacchetti=""
formule=""
moduli=""
for gruppo in "$@"; do
  case "$gruppo" in
    run) pacchetti+=" $debian_run" formule+=" $brew_run" ;;
    test) pacchetti+=" $debian_run $debian_test" formule+=" $brew_run $brew_test" moduli=$pip_python ;;
    bench) pacchetti+=" $debian_run $debian_bench" formule+=" $brew_run $brew_bench" moduli=$pip_python ;;
    fuzz) pacchetti+=" $debian_fuzz" formule+=" $brew_fuzz" ;;
    format) pacchetti+=" $debian_format" formule+=" $brew_format" ;;
    *)
      echo "installa_dipendenze: unknown group '$gruppo' (run, test, bench, fuzz, format)" >&2
      exit 2
      ;;
  esac
done

# Each name once, in order, on one line.
unici() { printf '%s\n' $1 | awk 'NF && !visti[$0]++' | tr '\n' ' ' | sed 's/ $//'; }

if [ "$(uname -s)" = "Darwin" ]; then
  formule=$(unici "$formule")
  if ! command -v brew >/dev/null 2>&1; then
    echo "Pendrino needs these Homebrew formulas: $formule"
    [ -z "$moduli" ] || echo "and these Python modules: python3 -m pip install --user $moduli"
    echo "Homebrew is not installed (https://brew.sh); carrying on with what is there."
    exit 0
  fi
  mancanti=""
  for f in $formule; do
    brew list --formula "$f" >/dev/null 2>&1 || mancanti+=" $f"
  done
  for m in $moduli; do
    if ! python3 -c "import $m" >/dev/null 2>&1; then
      echo "Missing Python modules. Run:"
      echo "  python3 -m pip install --user $moduli"
      break
    fi
  done
  if [ -n "$mancanti" ]; then
    echo "Missing Homebrew formulas. Run:"
    echo "  brew install${mancanti}"
    exit 1
  fi
  exit 0
fi

pacchetti=$(unici "$pacchetti")
if ! command -v dpkg-query >/dev/null 2>&1 || ! command -v apt-get >/dev/null 2>&1; then
  echo "Not a Debian or Ubuntu system: install the equivalents of these Debian packages:"
  echo "  $pacchetti"
  exit 0
fi

# One dpkg-query for all of them; it says nothing about packages it has never seen.
installati=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $pacchetti 2>/dev/null |
  awk '$2 == "installed" { print $1 }' || true)
mancanti=""
for p in $pacchetti; do
  grep -qxF "$p" <<<"$installati" || mancanti+=" $p"
done
mancanti=${mancanti# }
[ -n "$mancanti" ] || exit 0

installa="apt-get install -y --no-install-recommends $mancanti"
if [ "$(id -u)" -ne 0 ]; then
  echo "Pendrino needs these packages: $mancanti"
  echo "Install them as root, then try again:"
  echo "  sudo apt-get update && sudo $installa"
  exit 1
fi

echo "Installing: $mancanti"
apt-get update -qq
DEBIAN_FRONTEND=noninteractive $installa
# The tests start the screen reader fenrir themselves; the package also turns
# it on for the text console at boot, which a machine that did not have it
# did not ask for. A fenrir installed before is left as it was.
if grep -qw fenrir <<<"$mancanti" && command -v systemctl >/dev/null 2>&1; then
  systemctl disable fenrir.service >/dev/null 2>&1 || true
fi
