#!/usr/bin/env bash
# Installs the packages in a fresh system of this distribution, uses them there, and removes them.
# The system comes from where this machine's apt gets its packages, and is gone at the end.
#
#   fresh-root.sh PACKAGE.deb...
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$here/../../scripts/common.sh"

sources=$(distribution_sources "$(. /etc/os-release && printf '%s' "$ID")")
[[ -n $sources ]] || die "apt knows no package source of this distribution (apt-get update?)"
mapfile -t options < <(apt_options 'https?::Proxy|Check-Valid-Until')

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/kxjs"
cp "$@" "$work/kxjs"
cp -r "$here/consumer" "$here/consumer_c" "$here/in-fresh-root.sh" "$work/kxjs"
chmod 755 "$work"

# The hooks run before the system is removed. Of this shell's environment they get only the proxy
# settings.
KXJS_ENVIRONMENT="PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root"
for variable in http_proxy https_proxy no_proxy; do
    [[ -z ${!variable:-} ]] || KXJS_ENVIRONMENT+=" $variable=${!variable}"
done
as_root env KXJS_ENVIRONMENT="$KXJS_ENVIRONMENT" \
    mmdebstrap --quiet --mode=root --variant=apt "${options[@]}" \
    --customize-hook="copy-in '$work/kxjs' /opt" \
    --customize-hook='env -i $KXJS_ENVIRONMENT chroot "$1" /opt/kxjs/in-fresh-root.sh' \
    "" /dev/null - <<<"$sources"
