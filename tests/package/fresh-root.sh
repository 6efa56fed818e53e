#!/usr/bin/env bash
# Installs the packages in a fresh system of this distribution, uses them there, and removes them.
# The system comes from where this machine's apt gets its packages, and is gone at the end.
#
#   fresh-root.sh PACKAGE.deb...
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)

# The package sources of the distribution itself, without those of other vendors.
distribution=$(. /etc/os-release && printf '%s' "$ID")
sources=$(
    apt-get indextargets --format '$(ORIGIN) deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' | sed -n "s/^$distribution deb /deb /Ip" | sort -u
)
[[ -n $sources ]] || {
    echo "apt knows no package source of $distribution (apt-get update?)" >&2
    exit 1
}

# apt in the new system uses this machine's proxy settings.
options=()
while IFS= read -r option; do options+=("--aptopt=$option"); done < <(
    apt-config dump | grep -E '^Acquire::https?::Proxy ' || true
)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/kxjs"
cp "$@" "$work/kxjs"
cp -r "$here/consumer" "$here/in-fresh-root.sh" "$work/kxjs"
chmod 755 "$work"

# The hooks run before the system is removed. Of this shell's environment they get only the proxy
# settings.
export KXJS_ENVIRONMENT="PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root"
for variable in http_proxy https_proxy no_proxy; do
    [[ -z ${!variable:-} ]] || KXJS_ENVIRONMENT+=" $variable=${!variable}"
done
mmdebstrap --quiet --variant=apt "${options[@]}" \
    --customize-hook="copy-in '$work/kxjs' /opt" \
    --customize-hook='env -i $KXJS_ENVIRONMENT chroot "$1" /opt/kxjs/in-fresh-root.sh' \
    "" /dev/null - <<<"$sources"
