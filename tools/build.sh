# shellcheck shell=bash
# Sourced from the repository's top folder. Configures and builds presets of CMakePresets.json.

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi

# build PRESET [TARGET...]: configures when that was never done (ninja repeats it when needed) and builds.
build() {
    local preset=$1
    shift
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    # The configuration makes the library as well, but only when it runs, and its output is dropped.
    if [[ $preset = windows* ]] && ! grep -qs '^JPEG_ROOT:PATH=.' "build/$preset/CMakeCache.txt"; then
        tools/jpeg-library "$preset" || return
    fi
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null || return
    cmake --build --preset "$preset" "${targets[@]}"
}
