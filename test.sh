#!/bin/sh
# SPDX-License-Identifier: MIT
#
# ./test.sh [CTEST-ARGUMENT...]: installs what is missing, builds OnuDesk and runs its tests.
set -eu
cd "$(dirname "$0")"
scripts/deps
scripts/build release
exec ctest --test-dir build/release --output-on-failure --no-tests=error -j "${JOBS:-2}" "$@"
