# Shared by ./run and ./check; sourced by bash in the root of the tree.

# Checkouts in different folders share what the compiler has already made.
export CCACHE_BASEDIR=$PWD

say() { printf '\033[1m==>\033[0m %s\n' "$*" >&2; }
fail() { printf 'error: %s\n' "$*" >&2; exit 1; }

# as_root COMMAND...: runs it as it is for root, through sudo for everybody else.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else
    command -v sudo >/dev/null || fail "packages are missing; run this as root or install sudo"
    sudo -- "$@"
  fi
}

# listed_packages SECTION...: the names of those sections that this machine may need.
listed_packages() {
  local section='' line name condition wanted=" $* "
  while read -r line; do
    case $line in
      '' | '#'*) ;;
      '['*']') section=${line:1:-1} ;;
      *)
        [[ $wanted == *" $section "* ]] || continue
        read -r name condition <<<"$line"
        [[ $condition == command=* ]] && command -v "${condition#command=}" >/dev/null && continue
        printf '%s\n' "$name"
        ;;
    esac
  done <packaging/packages.txt
}

# missing_packages NAME...: those that are not installed.
missing_packages() {
  local installed
  # dpkg-query ends with a failure when it has never heard of one of them.
  installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p') || true
  printf '%s\n' "$@" | grep -Fxv -f <(printf '%s\n' "$installed") || true
}

# install_packages SECTION...: installs what is missing; asks nothing of apt when nothing is.
install_packages() {
  local wanted missing
  mapfile -t wanted < <(listed_packages "$@")
  [ ${#wanted[@]} -gt 0 ] || return 0
  mapfile -t missing < <(missing_packages "${wanted[@]}")
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${#missing[@]} packages (log: build/packages.log): ${missing[*]}"
  mkdir -p build
  {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq &&
      as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 "${missing[@]}"
  } >build/packages.log 2>&1 && return 0
  tail -n 20 build/packages.log >&2
  printf 'error: the packages could not be installed\n' >&2
  return 1
}

# fetch_assets: the hand-drawn face of the editor, pinned by package-lock.json. The program runs without it, in another face.
fetch_assets() {
  local font=ShantellSans_600SemiBold.ttf package=node_modules/@expo-google-fonts/shantell-sans
  [ -s "assets/fonts/$font" ] && [ -s assets/fonts/LICENSE_SHANTELL ] && return 0
  install_packages assets || say "npm could not be installed"
  if ! command -v npm >/dev/null; then
    say "npm is missing: building without the hand-drawn face"
    return 0
  fi
  say "Fetching the hand-drawn face"
  if npm ci --ignore-scripts --no-audit --no-fund --loglevel=error >&2 &&
    mkdir -p assets/fonts && cp "$package/LICENSE_FONT" assets/fonts/LICENSE_SHANTELL &&
    cp "$package/600SemiBold/$font" "assets/fonts/$font"; then
    rm -rf node_modules
  else
    say "it could not be fetched: building without the hand-drawn face"
  fi
}

# configure PRESET [ARGUMENT...] and build PRESET [ARGUMENT...]: quiet while all is well.
configure() {
  local preset=$1 log=build/$1-configure.log
  shift
  mkdir -p build
  cmake --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log" >&2; fail "the build could not be configured"; }
}
build() {
  local preset=$1
  shift
  cmake --build "build/$preset" --parallel "$(nproc)" "$@" 2>&1 |
    sed -u '/^\[0\/[0-9]*\] Re-checking globbed/d; /^ninja: no work to do/d' >&2 || fail "the build failed"
}
