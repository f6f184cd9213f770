#!/usr/bin/env bash
# Builds the Debian package from a finished build with cpack and checks what it would install:
# its control data, every file it must place under /usr with the right mode, dependencies that
# dpkg-shlibdeps worked out, and a software-centre entry that appstreamcli accepts.
#     package_test.sh <build folder> <version>
# Exit code 77 (skipped) when the Debian tools are not installed.
set -euo pipefail
build=$1
version=$2

for tool in cpack dpkg-deb dpkg-shlibdeps file appstreamcli; do
  if ! command -v "$tool" >/dev/null; then
    echo "SKIP: $tool is not installed (scripts/setup.sh installs it)"
    exit 77
  fi
done

out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
fail() { echo "FAIL: $*"; exit 1; }

if ! cpack -G DEB --config "$build/CPackConfig.cmake" -B "$out" >"$out/cpack.log" 2>&1; then
  cat "$out/cpack.log"
  fail "cpack could not build the package"
fi
arch=$(dpkg --print-architecture)
deb=$out/qx_${version}_${arch}.deb
[ -f "$deb" ] || fail "no $(basename "$deb") among: $(cd "$out" && echo *.deb)"

# Control data.
field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Package)" = qx ] || fail "Package is '$(field Package)'"
[ "$(field Version)" = "$version" ] || fail "Version is '$(field Version)'"
[ "$(field Architecture)" = "$arch" ] || fail "Architecture is '$(field Architecture)'"
[ "$(field Section)" = games ] || fail "Section is '$(field Section)'"
depends=$(field Depends)
# Libraries only dpkg-shlibdeps would name, with the versions it reads from the system.
for lib in 'libc6 (>=' 'libqt6widgets6 (>=' 'libqt6network6 (>=' 'libqt6multimedia6 (>=' qt6-qpa-plugins; do
  [[ $depends == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
done
control=$(dpkg-deb -I "$deb")
grep -qE ' md5sums *$' <<<"$control" || fail "no md5sums in the control archive"
# Nothing needs doing on install or removal; a maintainer script (cpack adds ldconfig calls for
# a shared object in a library folder) would also keep the package listed after apt-get remove.
! grep -qE ' (preinst|postinst|prerm|postrm) ' <<<"$control" || fail "maintainer scripts in the package: $control"

# Contents: "mode owner path" for every entry, links as "path -> target".
listing=$(dpkg-deb -c "$deb" | awk '{ path = $6; for (i = 7; i <= NF; i++) path = path " " $i; print $1, $2, path }')
expect() {
  grep -qxF -- "$1" <<<"$listing" || fail "the package lacks '$1'"
}
expect "lrwxrwxrwx root/root ./usr/bin/qx -> ../lib/games/qx/qx"
expect "lrwxrwxrwx root/root ./usr/games/qx -> ../lib/games/qx/qx"
expect "-rwxr-xr-x root/root ./usr/lib/games/qx/qx"
expect "-rw-r--r-- root/root ./usr/lib/games/qx/libqx_sound_multimedia.so"
for data in CHEER.WAV deck1.bmp qx.png qxicon.pam splash.ppm splashback.ppm splashmask.ppm \
            help/{,de/,fr/}{contents,rules,strategy}.html; do
  expect "-rw-r--r-- root/root ./usr/lib/games/qx/$data"
done
expect "-rw-r--r-- root/root ./usr/share/applications/qx.desktop"
for size in 16 22 24 32 48 64 128 256; do
  expect "-rw-r--r-- root/root ./usr/share/icons/hicolor/${size}x${size}/apps/qx.png"
done
expect "-rw-r--r-- root/root ./usr/share/icons/hicolor/scalable/apps/qx.svg"
expect "-rw-r--r-- root/root ./usr/share/metainfo/org.brackenfall.qx.metainfo.xml"
expect "-rw-r--r-- root/root ./usr/share/man/man6/qx.6.gz"
expect "-rw-r--r-- root/root ./usr/share/doc/qx/copyright"
expect "-rw-r--r-- root/root ./usr/share/doc/qx/changelog.gz"
expect "-rw-r--r-- root/root ./usr/share/lintian/overrides/qx"
stray=$(awk '$3 !~ /^\.\/usr\// && $3 != "./"' <<<"$listing")
[ -z "$stray" ] || fail "entries outside /usr: $stray"
odd=$(awk '$2 != "root/root" || ($1 ~ /^d/ && $1 != "drwxr-xr-x")' <<<"$listing")
[ -z "$odd" ] || fail "entries with an unusual owner or folder mode: $odd"

# The installed pieces themselves.
root=$out/root
dpkg-deb -x "$deb" "$root"
file -b "$root/usr/lib/games/qx/qx" | grep -q 'stripped' && ! file -b "$root/usr/lib/games/qx/qx" | grep -q 'not stripped' \
  || fail "the program is not stripped: $(file -b "$root/usr/lib/games/qx/qx")"
for size in 16 48 256; do
  file -b "$root/usr/share/icons/hicolor/${size}x${size}/apps/qx.png" | grep -q "PNG image data, $size x $size" \
    || fail "the ${size}-pixel icon is $(file -b "$root/usr/share/icons/hicolor/${size}x${size}/apps/qx.png")"
done
gzip -dc "$root/usr/share/man/man6/qx.6.gz" | grep -q '^\.TH QX 6 ' || fail "the manual page is not qx(6)"
# The software centre's entry names the release being packaged; checked on its own and together
# with the menu entry it launches. --no-net: the screenshot's address is a placeholder until the
# picture is published.
metainfo=$root/usr/share/metainfo/org.brackenfall.qx.metainfo.xml
grep -q "<release version=\"$version\"" "$metainfo" || fail "the software-centre entry has no release $version"
appstreamcli validate --no-net "$metainfo" || fail "appstreamcli rejects the software-centre entry"
appstreamcli validate-tree --no-net "$root" || fail "appstreamcli rejects the installed tree"
echo "qx_${version}_${arch}.deb: $(wc -l <<<"$listing") entries; Depends: $depends"
