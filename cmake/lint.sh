#!/bin/sh
# Formatting, clang-tidy and cppcheck. $1: a configured build folder.
set -eu
build="$1"
git ls-files '*.h' '*.cpp' '*.c' | xargs clang-format --dry-run --Werror
# One file a process: with several, what the analyzer knows of the one leaks into the next.
# tools/ldsdk/plain is no part of this build: it takes the place of tools/ldsdk/editor.cpp for ARM.
git ls-files 'sdk/*.cpp' 'chipmodel/*.cpp' 'platform/host/*.cpp' 'host/*.cpp' 'tools/*.cpp' \
    ':!tools/ldsdk/plain' |
    xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p "$build" 2>/dev/null
# Lists and tables are read through the preprocessor, which makes these two checks guess:
#   unusedFunction: the exported interface is called from outside
#   missingInclude*: system headers are not read
# Two more it gets wrong: it can't parse constants that a lambda makes (syntaxError), and it takes a
# chain of ?: for a comparison (compareBoolExpressionWithInt).
cppcheck --quiet --std=c++20 --enable=warning,portability,performance --inline-suppr \
    --suppress=missingInclude --suppress=missingIncludeSystem --suppress=syntaxError \
    --suppress=compareBoolExpressionWithInt -j "$(nproc)" --error-exitcode=1 \
    -I . -I include sdk chipmodel platform/host host tools
