#!/usr/bin/env bash
# Installs the Debian packages that a task needs and the machine lacks; silent when it lacks none.
#
#     scripts/setup.sh GROUP...
#
# The groups are build, test, check, bench, sanitize32, coverage, windows, clients.
set -euo pipefail

declare -A packages=(
    [build]="g++ cmake make libpugixml-dev"
    [test]="doctest-dev locales python3"
    [check]="clang clang-format clang-tidy libclang-rt-14-dev"
    [bench]="libbenchmark-dev libpugixml-dev python3 time"
    [sanitize32]="g++-multilib"
    [coverage]="gcovr"
    [windows]="g++-mingw-w64-i686-win32 doctest-dev python3 wine wine32:i386 fonts-wine xvfb xauth"
    [clients]="musescore3 libxml2-utils nodejs npm"
)

wanted=()
for group in "$@"; do
    [[ -n ${packages[$group]-} ]] || { echo "setup.sh: there is no group \"$group\"" >&2; exit 2; }
    read -ra names <<<"${packages[$group]}"
    wanted+=("${names[@]}")
done

if ! command -v apt-get >/dev/null; then
    echo "setup.sh: this is no Debian system; what is needed is: ${wanted[*]}" >&2
    exit 0
fi

# A package of a program's name is not needed where that program has come some other way.
missing=()
for name in "${wanted[@]}"; do
    ! type -P "$name" >/dev/null || continue
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$name" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$name")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $EUID -ne 0 ]]; then
    command -v sudo >/dev/null ||
        { echo "setup.sh: install as root, please: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi

preference=/etc/apt/preferences.d/tabulorix-setup

# Lists that are missing or old do not know the packages. One that cannot be fetched need not matter.
update() {
    "${as_root[@]}" apt-get update --quiet || true
}

install() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --quiet --no-install-recommends "$@" "${missing[@]}"
}

# A library that is there for two architectures has the same version in both. When the security
# archive lists an update for one of them only, the main archive's version, which both have, must do.
install_from_main_archive() {
    trap '"${as_root[@]}" rm -f "$preference"' EXIT
    printf 'Package: *\nPin: release l=Debian\nPin-Priority: 1001\n' |
        "${as_root[@]}" tee "$preference" >/dev/null
    install --allow-downgrades
}

echo "Installing what is missing to $* Tabulorix: ${missing[*]}"
if [[ "${missing[*]}" != *:i386* ]]; then
    install 2>/dev/null || { update && install; }
else
    "${as_root[@]}" dpkg --add-architecture i386
    update
    install || install_from_main_archive
fi
