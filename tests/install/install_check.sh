#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build into a scratch DESTDIR, runs the installed program from
# there, validates the desktop files and compares the Debian package with
# the install.   install_check.sh BUILD_DIR SCRATCH_DIR APP_ID
set -u
build=$1 scratch=$2 app=$3
root=$scratch/root
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

rm -rf "$scratch" && mkdir -p "$scratch/home" || exit 1
DESTDIR=$root cmake --install "$build" --prefix /usr >"$scratch/install.log" 2>&1 ||
  { cat "$scratch/install.log" >&2; exit 1; }

# What a desktop install must hold (paths under the prefix).
while read -r file; do
  [ -f "$root/usr/$file" ] || fail "not installed: $file"
done <<LIST
bin/lumidesk
bin/citp-peer
lib/lumidesk/libglowEngine.so
lib/lumidesk/libglowproEngine.so
share/applications/$app.desktop
share/metainfo/$app.metainfo.xml
share/man/man1/lumidesk.1.gz
share/man/man1/citp-peer.1.gz
share/icons/hicolor/16x16/apps/$app.png
share/icons/hicolor/48x48/apps/$app.png
share/icons/hicolor/256x256/apps/$app.png
LIST

bin=$root/usr/bin
# The help button opens <program folder>/../Documentation: a link to the manual.
[ -f "$root/usr/share/doc/lumidesk/html/index.html" ] || fail "manual not installed"
[ -f "$bin/../Documentation/index.html" ] || fail "the help button's folder holds no manual"
"$bin/lumidesk" --help >"$scratch/help.txt" 2>&1 || fail "lumidesk --help exited with $?"
grep -q -- "--model" "$scratch/help.txt" || fail "lumidesk --help lists no --model"
"$bin/citp-peer" --help >/dev/null 2>&1 || fail "citp-peer --help exited with $?"

# The Maple's engine must come from the installed tree, not the build tree.
engine=$root/usr/lib/lumidesk/libglowproEngine.so
(cd "$scratch/home" && exec "$bin/lumidesk" --model maple) >"$scratch/run.log" 2>&1 &
pid=$!
tries=0
until grep -qF "$engine" "/proc/$pid/maps" 2>/dev/null || [ $tries -ge 100 ]; do
  sleep 0.1; tries=$((tries + 1))
done
grep -qF "$engine" "/proc/$pid/maps" 2>/dev/null || fail "installed engine never loaded"
sleep 2
if kill -TERM $pid 2>/dev/null; then
  wait $pid; status=$?
  [ $status -eq 143 ] || fail "lumidesk ended with $status instead of our SIGTERM"
else
  wait $pid; fail "lumidesk --model maple stopped by itself ($?)"; cat "$scratch/run.log" >&2
fi

for tool in desktop-file-validate appstreamcli dpkg-deb; do
  command -v $tool >/dev/null || fail "$tool is missing (tools/dev.sh installs it)"
done
desktop=$root/usr/share/applications/$app.desktop
desktop-file-validate "$desktop" || fail "desktop file"
# validate-tree also checks that the metainfo's launchable is installed.
appstreamcli validate-tree --no-net "$root" || fail "metainfo"
# The menu entry must start the installed program and show the installed icon.
exe=$bin/$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$desktop")
[ -f "$exe" ] && [ -x "$exe" ] || fail "Exec names no installed program: $exe"
[ "$(sed -n 's/^Icon=//p' "$desktop")" = "$app" ] || fail "Icon is not $app"

# The package must hold exactly the installed files and computed Depends.
cpack --config "$build/CPackConfig.cmake" -B "$scratch/deb" >"$scratch/cpack.log" 2>&1 ||
  { cat "$scratch/cpack.log" >&2; fail "cpack"; }
deb=$(ls "$scratch"/deb/*.deb 2>/dev/null | head -n 1)
if [ -n "$deb" ]; then
  (cd "$root" && find . ! -type d | sort) >"$scratch/installed.txt"
  dpkg-deb -c "$deb" >"$scratch/contents.txt"
  awk '$1 !~ /^d/ {print $6}' "$scratch/contents.txt" | sort >"$scratch/packaged.txt"
  diff "$scratch/installed.txt" "$scratch/packaged.txt" >&2 || fail "package differs from install"
  grep -q '/usr/Documentation -> share/doc/lumidesk/html$' "$scratch/contents.txt" ||
    fail "package lacks the help button's link to the manual"
  depends=$(dpkg-deb -f "$deb" Depends)
  for lib in libqt6widgets6 libqt6network6 libudev1 libgcrypt20; do
    case "$depends" in *"$lib "*) ;; *) fail "Depends lacks $lib: $depends" ;; esac
  done
fi

[ $failures -eq 0 ] && echo "install check passed" || exit 1
