#!/bin/sh
# Builds the consumer with what pkg-config says, and runs it.
#
#   pkg-config.sh COMPILER STANDARD PREFIX LIBDIR SOURCE WORK-DIRECTORY
set -eu
compiler=$1
standard=$2
prefix=$3
libdir=$4
source=$5
work=$6

mkdir -p "$work"
PKG_CONFIG_PATH="$prefix/$libdir/pkgconfig"
export PKG_CONFIG_PATH
# pkg-config escapes blanks in paths for a shell to read.
eval "\"\$compiler\" \"\$standard\" \"\$source\" $(pkg-config --cflags --libs kxjsparser)" \
    '-o "$work/consumer"'
LD_LIBRARY_PATH="$prefix/$libdir" "$work/consumer"
