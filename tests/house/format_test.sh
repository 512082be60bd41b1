#!/usr/bin/env bash
# Every C++ file of the tree looks as .clang-format says.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# Releases of clang-format differ in small ways; this one decides.
wanted=14
tool=clang-format
if command -v "clang-format-$wanted" >/dev/null; then tool=clang-format-$wanted; fi
version=$("$tool" --version | sed -n 's/.*version \([0-9]*\)\..*/\1/p')

# What git knows or would add, or, where there is no repository (an unpacked archive), what lies there. The tests may
# run as another user than the owner of the clone, which git takes no offence at for reading names.
if ! git -c safe.directory='*' ls-files -co --exclude-standard -z -- '*.h' '*.cpp' >/dev/null 2>&1; then
    mapfile -d '' files < <(find core app tests bench fuzz \( -name '*.h' -o -name '*.cpp' \) -print0 2>/dev/null)
else
    mapfile -d '' files < <(git -c safe.directory='*' ls-files -co --exclude-standard -z -- '*.h' '*.cpp')
fi

existing=()
for file in "${files[@]}"; do
    # A file deleted in the working tree is still in git's list.
    if [[ -f $file ]]; then existing+=("$file"); fi
done
if ((${#existing[@]} == 0)); then
    echo "No C++ file found in $PWD." >&2
    exit 1
fi

if "$tool" --dry-run -Werror "${existing[@]}"; then
    echo "${#existing[@]} files, as $tool $version wants them"
    exit
fi
if [[ $version != "$wanted" ]]; then
    # Not a verdict: CTest counts this test as skipped.
    echo "This is clang-format $version, and the tree is formatted with $wanted: only that one can judge it."
    exit 77
fi
echo "Mend with: clang-format -i FILE" >&2
exit 1
