# Shared by ./dev, the lint script and .ci/run. Expects the repository's root as working directory.

# Installs the packages of packages.txt that are missing; asks nothing. Root, or sudo.
install_packages() {
    local missing=() package
    while read -r package; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
    done < <(grep -vE '^\s*(#|$)' packages.txt)
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Programs and packages of a preset, into build/PRESET, or only the targets named after it. A sanitizer build takes the pictures that the release tool renders:
# the same bytes, ten times sooner.
build_preset() {
    local preset=$1 options=()
    shift
    install_packages
    case "$preset" in
        release | debug) ;;
        asan | tsan | fuzz | clang)
            build_preset release
            options=(-DGRUB_CONTENT_TOOL="$PWD/build/release/bin/grubtool")
            ;;
        *) echo "unknown preset '$preset'" >&2; return 2 ;;
    esac
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" "${options[@]}" >"$(log_of "$preset" configure)" 2>&1 ||
        { cat "$(log_of "$preset" configure)"; return 1; }
    ninja -C "build/$preset" "$@" >"$(log_of "$preset" build)" 2>&1 || { tail -n 60 "$(log_of "$preset" build)"; return 1; }
}

log_of() { mkdir -p "build/$1" && echo "build/$1/$2.log"; }

# Runs a program without display, sound card and session bus.
headless() {
    SDL_VIDEODRIVER=dummy SDL_AUDIODRIVER=dummy DBUS_SESSION_BUS_ADDRESS=disabled: SDL_FRAMEBUFFER_ACCELERATION=0 "$@"
}

# Plays the recorded games with the tool of a build: the same hashes with every compiler and every kind of build.
play_games() {
    local game
    for game in tests/games/*.game; do "build/$1/bin/grubtool" play --data build/release/data "$game" || return 1; done
}

run_tests() { headless ctest --test-dir "build/$1" --output-on-failure; }
