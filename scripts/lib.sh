# Shared by the scripts beside it: where the project is, what the machine must have, and building.
# shellcheck shell=bash disable=SC2034

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
readonly root
readonly jobs=2

readonly build_packages=(cmake ninja-build g++ ccache)
readonly tool_packages=(pkg-config libcli11-dev zlib1g-dev libzstd-dev libasio-dev)
readonly test_packages=(libgtest-dev libgeographiclib-dev python3-dev)
readonly bench_packages=(libbenchmark-dev)
# What builds the viewer, beside what npm brings.
readonly viewer_packages=(clang-16 lld-16 wasi-libc libc++-16-dev-wasm32 libc++abi-16-dev-wasm32
    libclang-rt-16-dev-wasm32 binaryen zstd)
# What tests take when they run.
readonly run_packages=(chromium locales-all zstd python3-pytest python3-hypothesis python3-numpy python3-pandas
    python3-matplotlib python3-dask python3-distributed mypy python3-typeshed)

as_root() {
    if [[ $EUID -eq 0 ]]; then "$@"; else sudo "$@"; fi
}

# need PACKAGE...: installs those of the Debian packages that are missing.
need() {
    local package missing=()
    for package in "$@"; do
        dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return
    echo "Installing ${missing[*]}" >&2
    as_root apt-get -qq update </dev/null >&2 || echo "Going on with the lists of packages that are there" >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 install --no-install-recommends \
        "${missing[@]}" </dev/null >&2
}

# need_npm FOLDER: Node.js, whoever has packaged it, and what a folder takes from npm, in the versions of its lock file;
# anew when other ones are wanted. Not by "npm ci", which asks for those of every other system, too, wherever they may be
# had.
need_npm() {
    command -v npm >/dev/null || need nodejs npm
    [[ $1/node_modules -nt $1/package-lock.json ]] ||
        npm install --no-save --prefix "$1" --no-audit --no-fund --loglevel=error >&2
}

# configure PRESET DIRECTORY [OPTION...]: configures one preset in a directory under build/.
configure() {
    local preset=$1 directory=$2
    shift 2
    cmake -S "$root" -B "$root/build/$directory" --preset "$preset" --log-level=WARNING "$@"
}

# build DIRECTORY [TARGET...]
build() {
    local directory=$1 target targets=()
    shift
    for target in "$@"; do targets+=(--target "$target"); done
    cmake --build "$root/build/$directory" --parallel "$jobs" "${targets[@]}"
}

# check PRESET [OPTION...]: builds one preset with all its tests, and runs them.
check() {
    local preset=$1
    shift
    configure "$preset" "$preset" "$@"
    build "$preset"
    ctest --test-dir "$root/build/$preset" --parallel "$jobs" --output-on-failure --no-tests=error
}

# outputs ASTDUMP...: what the tool makes of each sample, in each mode.
outputs() {
    local sample mode
    for sample in "$root"/samples/*.{ast,pcap,json,hex}; do
        for mode in --list --json '--json --texts' --verbose --detail --csv --stats; do
            # shellcheck disable=SC2086
            printf '== %s %s\n' "$mode" "${sample##*/}" && "$@" --jobs 1 $mode "$sample" 2>&1 || true
        done
    done
}
