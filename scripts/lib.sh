# Shared by ./dev, the lint script and .ci/run. Expects the repository's root as working directory.

# The compiler cache serves every checkout of the repository, and precompiled headers too.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

say() { echo "$*" >&2; }

# The packages of some groups of packages.txt.
packages_of() {
    local group
    for group in "$@"; do
        awk -v "group=[$group]" '/^\[/ { wanted = $0 == group; next } wanted && !/^(#|$)/' packages.txt
    done | sort -u
}

# Installs what is missing of the groups; as root or with sudo. Says what an administrator must do where neither is there.
install_packages() {
    local missing=() package admin=() log=build/packages.log
    for package in $(packages_of "$@"); do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "Missing packages: ${missing[*]}. As an administrator: apt-get install --no-install-recommends ${missing[*]}"
            return 1
        fi
        admin=(sudo)
    fi
    mkdir -p build
    say "Installing ${#missing[@]} packages: ${missing[*]}"
    { "${admin[@]}" apt-get update &&
        "${admin[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 ||
        { tail -n 20 "$log" >&2; say "The packages could not be installed; the log is $log."; return 1; }
}

# Configures a preset with options such as BUILD_TESTING=ON, if it is new or lacks one of them. Options are never taken back, so
# that commands do not throw away each other's work.
configure() {
    local preset=$1 log="build/$1/configure.log" option wanted=()
    shift
    for option in "$@"; do
        grep -q "^${option%%=*}:[A-Z]*=${option#*=}$" "build/$preset/CMakeCache.txt" 2>/dev/null || wanted+=("-D$option")
    done
    [ ! -f "build/$preset/build.ninja" ] || [ ${#wanted[@]} -gt 0 ] || return 0
    mkdir -p "build/$preset"
    say "Configuring build/$preset"
    cmake --preset "$preset" "${wanted[@]}" >"$log" 2>&1 || { tail -n 40 "$log" >&2; say "The log is $log."; return 1; }
}

# Builds targets of a preset. A terminal shows ninja's own status, everything else a line for every tenth of the steps and for
# pictures and sounds.
run_ninja() {
    local preset=$1 log="build/$1/build.log"
    shift
    say "Building ${*:-everything} in build/$preset"
    if [ -t 2 ]; then ninja -C "build/$preset" "$@" >&2; return; fi
    ninja -C "build/$preset" "$@" 2>&1 | tee "$log" | awk '
        /^\[[0-9]+\/[0-9]+\] / {
            split(substr($1, 2), steps, "/"); total = steps[2] + 0; tenth = int(10 * steps[1] / total)
            if ($2 == "Drawing" || ($2 == "Rendering" && !rendering++)) { sub(/^[^ ]* /, ""); print "  " $0 }
            else if (tenth > shown) { shown = tenth; print "  " steps[1] " of " total " steps" }
            fflush()
        }' >&2
    [ "${PIPESTATUS[0]}" -eq 0 ] || { grep -vE '^\[[0-9]+/[0-9]+\] ' "$log" | tail -n 60 >&2; say "The log is $log."; return 1; }
}

# The game and its packages, for playing.
build_game() {
    install_packages play
    configure release
    run_ninja release play
}

# Everything of a preset, or only the targets named after it. Builds for checks take the packages of the release build: drawing
# them again takes longer the more a build checks, and shows nothing.
build_preset() {
    local preset=$1 groups=(play test) options=(BUILD_TESTING=ON)
    shift
    case "$preset" in
        release) groups+=(bench) options+=(GRUB_BENCH=ON) ;;
        debug | asan | tsan) build_game; options+=("GRUB_CONTENT_FROM=$PWD/build/release") ;;
        fuzz) groups+=(fuzz); build_game; options+=("GRUB_CONTENT_FROM=$PWD/build/release") ;;
    esac
    install_packages "${groups[@]}"
    configure "$preset" "${options[@]}"
    run_ninja "$preset" "$@"
}

is_preset() { case "$1" in release | debug | asan | tsan | fuzz) true ;; *) false ;; esac; }

# Runs a program without display, sound card and session bus.
headless() {
    SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy DBUS_SESSION_BUS_ADDRESS=disabled: SDL_FRAMEBUFFER_ACCELERATION=0 "$@"
}

run_tests() { headless ctest --test-dir "build/$1" -j 2 --output-on-failure "${@:2}"; }

# Each fuzzer for some seconds, from the same seed each time; two at once.
run_fuzzers() {
    local seconds=$1 folder=build/fuzz/fuzz
    printf '%s\n' "$folder"/fuzz_* | grep -v '\.' | xargs -P 2 -I {} sh -c '
        name=$(basename {})
        if {} -seed=1 -max_total_time='"$seconds"' -artifact_prefix=build/fuzz/$name- >build/fuzz/$name.log 2>&1; then
            echo "$name: $(grep -oE "Done [0-9]+ runs" build/fuzz/$name.log)"
        else
            tail -n 40 build/fuzz/$name.log; echo "$name found a fault; the log is build/fuzz/$name.log"; exit 255
        fi'
}
