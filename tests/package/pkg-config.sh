#!/bin/sh
# Builds the consumer with what pkg-config says, and runs it.
#
#   pkg-config.sh COMPILER PREFIX LIBDIR SOURCE WORK-DIRECTORY
set -eu
compiler=$1
prefix=$2
libdir=$3
source=$4
work=$5

mkdir -p "$work"
PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
export PKG_CONFIG_PATH
# pkg-config escapes blanks in paths for a shell to read.
eval "\"\$compiler\" -std=c++20 \"\$source\" $(pkg-config --cflags --libs kxjsparser)" \
    '-o "$work/consumer"'
LD_LIBRARY_PATH="$prefix/$libdir" "$work/consumer"
