#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Runs a private olad for trying out (and testing) Lumidesk's OLA output
# without touching the network or any interface: RPC on loopback only, no web
# server, every plugin off (the network ones and the USB ones), settings in a
# folder of its own. Watch a universe with `ola_dmxmonitor -u 1` (port 9010).
# olad refuses to run as root, so as root it runs as the olad user (or nobody).
#   tools/olad-sandbox.sh [RPC-PORT [CONFIG-DIR]]   defaults: 9010, a new temporary folder
set -eu
command -v olad >/dev/null || { echo "olad is not installed (Debian package ola)" >&2; exit 127; }
port=${1:-9010}
config=${2:-$(mktemp -d)}
mkdir -p "$config"
for plugin in artnet dummy e131 espnet ftdidmx gpio karate kinet milinst opendmx \
  openpixelcontrol osc pathport renard sandnet shownet spi stageprofi uartdmx usbdmx usbserial; do
  echo "enabled = false" >"$config/ola-$plugin.conf"
done
set -- olad --config-dir "$config" --rpc-port "$port" --no-http --no-register-with-dns-sd
if [ "$(id -u)" -eq 0 ]; then
  uid=$(id -u olad 2>/dev/null || echo 65534)
  chown -R "$uid:65534" "$config"
  set -- setpriv --reuid="$uid" --regid=65534 --clear-groups "$@"
fi
exec "$@"
