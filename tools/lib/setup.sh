# shellcheck shell=bash
# Sourced by the scripts of tools/: installs packages and builds presets.

project_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

# shellcheck disable=SC2034 # for the scripts that source this
build_packages=(
    g++ cmake ninja-build
    libicu-dev libcli11-dev libfmt-dev nlohmann-json3-dev zlib1g-dev libmagic-dev # the example host
    libsqlite3-dev                                        # the loader among the examples
    libgtest-dev python3                                  # the tests
)

# shellcheck disable=SC2034
import_packages=(python3 python3-pandas r-base-core r-cran-data.table r-cran-readr sqlite3 postgresql nodejs)

missing_packages() {
    local package
    for package in "$@"; do
        if [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
            echo "$package"
        fi
    done
}

# Installs those of the given Debian packages that are missing, or says which they are and stops.
require_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if ((${#missing[@]} == 0)); then
        return
    fi
    if ! command -v apt-get >/dev/null || ((EUID != 0)); then
        echo "These Debian packages are missing: ${missing[*]}" >&2
        echo "Install them as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    export DEBIAN_FRONTEND=noninteractive
    if ! { apt-get update -qq && apt-get install -y -qq --no-install-recommends "${missing[@]}"; } >&2; then
        echo "Could not install these Debian packages: ${missing[*]}" >&2
        exit 1
    fi
}

# Configures and builds a CMake preset; further arguments go to the build. The output is shown only
# if something fails.
build_preset() {
    local preset=$1 log
    shift
    log=$(mktemp)
    echo "Building the preset $preset ..." >&2
    if ! (cd "$project_root" && cmake --preset "$preset" &&
        cmake --build --preset "$preset" -j"$(nproc)" "$@") >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}

# Installs what import statements are proved with and Debian does not have, in the versions of the lock, where
# the tests look for it. Without it, those tests are skipped and say so.
install_import_tools() {
    local folder=$project_root/build/import_tools
    command -v npm >/dev/null || require_packages npm
    mkdir -p "$folder"
    cp "$project_root"/examples/tests/imports/package{,-lock}.json "$folder"
    if ! npm --prefix "$folder" install --no-save --no-audit --no-fund --loglevel error >&2; then
        echo "Could not install the packages for Node that import statements are proved with" >&2
    fi
}
