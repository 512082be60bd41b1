# shellcheck shell=bash
# What ./run and ./test share: steps that say what happens and how long it took, and that show their output only
# when they fail. Sourced by both, with the working directory at the root of the project.

readonly logs=build/logs

# step TITLE COMMAND...: runs the command with its output in a log. A failing step shows the end of its log and
# ends the program. The command must chain its own commands with &&: below, bash does not end it at the first that
# fails.
step() {
    local title=$1 began=$SECONDS status=0
    shift
    mkdir -p "$logs"
    local log=$logs/${title//[^[:alnum:]]/-}.log
    printf '%-42s' "$title ..."
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if ((status == 0)); then
        printf '%4d s\n' $((SECONDS - began))
        return
    fi
    printf 'failed after %d s\n' $((SECONDS - began))
    {
        tail -n 80 "$log"
        echo "That was: $*"
        echo "The whole log: $PWD/$log"
    } >&2
    exit "$status"
}

# Leaves a build tree ready to build. A tree that was made for another folder (the clone has moved, or the tree was
# copied along) is configured afresh: CMake refuses it otherwise, and Ninja would still look for the old files.
configure() {
    local preset=$1 tree=build/$1 fresh=()
    if [[ -f $tree/CMakeCache.txt ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$tree/CMakeCache.txt"; then
        rm -f "$tree"/.ninja_deps "$tree"/.ninja_log
        fresh=(--fresh)
    fi
    cmake --preset "$preset" "${fresh[@]}"
}

# build_tree PRESET [TARGET...]: configures and builds, everything unless targets are named.
build_tree() {
    local preset=$1
    shift
    configure "$preset" && cmake --build "build/$preset" --target "${@:-all}"
}

# The debug information of ccache's objects then names the build tree that compiled them first; in return trees that
# compile alike (`dev` and `core-only`) compile once.
export CCACHE_NOHASHDIR=1
