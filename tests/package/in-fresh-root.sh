#!/bin/sh
# Run by fresh-root.sh inside the fresh system, beside the packages and the consumer.
set -eu
cd "$(dirname "$0")"
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8

say() { printf 'fresh-root: %s\n' "$*"; }

fail() {
    say "FAILED: $*"
    exit 1
}

install() { apt-get install -y -qq --no-install-recommends "$@" >install.log 2>&1 || {
    cat install.log
    fail "installing $*"
}; }

purge() { apt-get purge -y -qq "$@" >purge.log 2>&1 || {
    cat purge.log
    fail "purging $*"
}; }

# Every file except the databases of apt and dpkg.
files() {
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /run -o -path /tmp \
        -o -path /opt -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log \
        -o -path /var/cache \) -prune -o -print | sort
}

is() {
    [ "$1" = "$2" ] || fail "\"$1\" instead of \"$2\""
}

say "kxjs alone, with what it depends on"
install ./libkxjsparser0_*.deb ./kxjs_*.deb
is "$(kxjs eval '1+1')" 2
is "$(kxjs eval --isolated '1+1')" 2
is "$(kxjs eval -v A=5 "IIF(A>2 .AND. A<>7,'OK','KO')")" OK
if kxjs eval 'A*' 2>error; then fail "a wrong formula is no failure"; fi
grep -q SyntaxError error || fail "no error text"
dpkg -L kxjs | grep -qx /usr/share/man/man1/kxjs.1.gz || fail "no manual page"
bash -c '. /usr/share/bash-completion/completions/kxjs && complete -p kxjs' >/dev/null ||
    fail "no completion"
ldconfig -p | grep -q 'libKxJsParser\.so\.0' || fail "the loader does not know the library"

purge kxjs libkxjsparser0
if ldconfig -p | grep libKxJsParser; then fail "the loader still knows the library"; fi

say "development"
install g++ cmake make pkg-config python3
files >before
install ./*.deb
g++ -std=c++20 consumer/main.cpp $(pkg-config --cflags --libs kxjsparser) -o with-pkg-config
./with-pkg-config
gcc -std=c99 consumer_c/main.c $(pkg-config --cflags --libs kxjsparser) -o c-with-pkg-config
./c-with-pkg-config
cmake -S consumer -B with-cmake >cmake.log && cmake --build with-cmake >>cmake.log || {
    cat cmake.log
    fail "building with CMake"
}
with-cmake/consumer
if readelf -d with-pkg-config | grep -E 'RPATH|RUNPATH'; then fail "the application has a path"; fi
ldd with-pkg-config | grep -q 'libKxJsParser\.so\.0 => \(/usr\)\?/lib' || fail "another library is loaded"

say "Python"
is "$(python3 -c 'import kxjsparser; print(kxjsparser.Host().evaluate("IIF(1<>2,6*7,0)"))')" 42
python3 -c 'import kxjsparser; print(kxjsparser.Host(isolated=True).evaluate("1"))' >isolated ||
    fail "no isolated host"

say "removal"
purge python3-kxjsparser libkxjsparser-dev libkxjsparser0 kxjs
files >after
diff before after || fail "files are left, or gone"
say "everything passed"
